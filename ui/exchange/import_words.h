#pragma once

#include <QString>
#include <QStringList>
#include <set>

#include "exchange/import_plan.h"
#include "exchange/log_reader.h"
#include "ui/exchange/text_file.h"

namespace tarvik::ui {

// What is told of a file that is to be read in, in Hungarian.

/// Why a file holds no logbook to be read in; empty when it may.
QString wordsOf(const TextFile& file, const QString& name);
QString wordsOf(const exchange::LogFile& log, const QString& name);

/// What was noticed of an entry, one after the other; empty for nothing.
QString wordsOf(const std::set<exchange::Doubt>& doubts);

/// Why a row is no entry.
QString wordsOf(const exchange::UnreadRow& row);

/// What a column is read as.
QString wordsOf(exchange::Meaning meaning);

/// What is to be known of a whole file before it is taken over, a line each.
QStringList noticesOf(const exchange::LogFile& log);

}  // namespace tarvik::ui
