#pragma once

#include <QString>
#include <QStringList>
#include <set>

#include "exchange/import_plan.h"
#include "exchange/log_summary.h"
#include "ui/exchange/text_file.h"

namespace tarvik::ui {

// What is told of a file that is to be read in, in Hungarian.

/// Why a file holds no logbook to be read in; empty when it may.
QString wordsOf(const TextFile& file, const QString& name);
QString wordsOf(const exchange::LogTable& table, const QString& name);

/// What was noticed of an entry, one after the other; empty for nothing.
QString wordsOf(const std::set<exchange::Doubt>& doubts);
/// Whether it is a figure that is outside of what cars do, to be looked at.
bool isOdd(const std::set<exchange::Doubt>& doubts);

/// Why a row is no entry.
QString wordsOf(const exchange::UnreadRow& row);

/// What a column is read as.
QString wordsOf(exchange::Meaning meaning);

/// What has to be answered before anything can be taken over.
QString wordsOf(exchange::Question question, const exchange::Reading& reading);

/// A vehicle of a file with several.
QString wordsOf(const exchange::VehicleRows& vehicle);

/// What entries come to, in one line: how many, from when to when, kilometres, litres, litres per 100 km,
/// forints per litre, forints. A figure outside of what cars do has a mark before it.
QString wordsOf(const exchange::LogSummary& summary);

/// What is to be known of a whole file before it is taken over, a line each.
QStringList noticesOf(const exchange::LogTable& table, const exchange::Reading& reading);

}  // namespace tarvik::ui
