#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QUrl>

namespace tarvik::test {

/// Takes the addresses of files that the program would open in a browser, and opens none.
class OpenedPages : public QObject {
  Q_OBJECT

 public:
  OpenedPages() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
  ~OpenedPages() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

  /// The places in the pages that were opened.
  QStringList chapters() const {
    QStringList places;
    for (const QUrl& page : opened) places.append(page.fragment());
    return places;
  }

  QList<QUrl> opened;

 public slots:
  void open(const QUrl& page) { opened.append(page); }
};

}  // namespace tarvik::test
