#pragma once

#include <QString>

class Control;

/// Fills a class list: the names of the class table in the order of 区分, and "全て" behind them. The number beside it
/// goes from 0 to the number of rows, so that its MaxValue means all. A table that cannot be read counts as empty.
/// Neither shows another value than before.
void FillClassList(Control& number, Control& list, const QString& table);
