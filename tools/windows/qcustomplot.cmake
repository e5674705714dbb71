# Debian's QCustomPlot as a static library under the names of its development package.
cmake_minimum_required(VERSION 3.25)
project(QCustomPlotQt6 LANGUAGES CXX)

find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets PrintSupport)
set(CMAKE_AUTOMOC ON)
add_library(QCustomPlotQt6 STATIC qcustomplot.cpp)
target_link_libraries(QCustomPlotQt6 PUBLIC Qt6::Widgets Qt6::PrintSupport)
target_include_directories(QCustomPlotQt6 INTERFACE $<INSTALL_INTERFACE:include>)

install(FILES qcustomplot.h DESTINATION include)
install(TARGETS QCustomPlotQt6 EXPORT QCustomPlotQt6Config ARCHIVE DESTINATION lib)
install(EXPORT QCustomPlotQt6Config NAMESPACE QCustomPlotQt6:: DESTINATION lib/cmake/QCustomPlotQt6)
