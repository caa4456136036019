#pragma once

#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

/// Inserts a row of the run history; `time`: hhnnss on 2026/11/21, or a whole time stamp.
inline void AddRow(const SampleFile& file, const QString& time, int counter, const QString& text,
                   const QString& user = u"tester"_s, const QString& staff = u"00001"_s) {
    file.Execute(u"INSERT INTO プログラム稼動履歴 VALUES (%1, '要員名簿照会', '%2', %3, '000', %4, %5)"_s.arg(
        SqlLiteral(time.size() > 6 ? time : u"20261121 "_s + time), QString::number(counter).rightJustified(12, u'0'),
        SqlLiteral(text), SqlLiteral(staff), SqlLiteral(user)));
}
