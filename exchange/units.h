#pragma once

#include "exchange/columns.h"
#include "exchange/reading.h"

namespace tarvik::exchange {

/// Finds out the units, the money and the words of a reading whose columns are known, and asks what the file
/// does not state. The facts are those of its columns.
void findUnits(const LogTable& table, const std::vector<ColumnFacts>& facts, const Choices& choices,
               Reading& reading);
void findMoney(const LogTable& table, const std::vector<ColumnFacts>& facts, const Choices& choices,
               Reading& reading);
void findFullWords(const std::vector<ColumnFacts>& facts, const Choices& choices, Reading& reading);

/// Notes a question, and whether it is answered.
void ask(Reading& reading, Question question, bool isAnswered);

}  // namespace tarvik::exchange
