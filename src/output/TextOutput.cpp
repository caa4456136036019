// Part of Outputs.h: the text output.

#include "data/Recordsets.h"
#include "data/RunHistory.h"
#include "globals/ProgramGlobals.h"
#include "output/CsvWriter.h"
#include "output/Outputs.h"
#include "output/ReportData.h"
#include "output/ReportDatabase.h"
#include "screen/Form.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

const QString kOperation = u"テキスト出力"_s;
const QString kLostNotice = u"文字はシフトJISにないため「?」で出力しました。"_s;

/// Replaces the notice of an earlier output; leaves other notices.
void ShowLostCharacters(const LostCharacters& lost) {
    Control& notice = Globals().MainForm->Item(u"お知らせ"_s);
    if (lost.characters > 0)
        notice.SetCaption(FormatByMask(lost.lines, u"#,###,##0"_s) + u"行の"_s +
                          FormatByMask(lost.characters, u"#,###,##0"_s) + kLostNotice);
    else if (notice.Caption().endsWith(kLostNotice))
        notice.SetCaption(QString());
}

}  // namespace

bool RunTextOutput() { return RunOutput(BuildReportData, WriteWorkTableToText, u"出力情報が有りません"_s); }

bool WriteWorkTableToText() {
    ProgramGlobals& globals = Globals();
    globals.MainForm->SetEnabled(false);
    RecordOutputStart(kOperation);
    LostCharacters lost;
    const bool hasRows = OpenReportReadOnly(globals.ReportRecordset, u"SELECT * FROM "_s + globals.ReportName);
    if (hasRows) lost = WriteRecordsetAsCsv(globals.ReportRecordset, globals.TextOutputFileName);
    CloseQuietly(globals.ReportRecordset);
    globals.ReportRecordset = database::Recordset();
    RecordOutputEnd(kOperation);
    globals.MainForm->SetEnabled(true);
    ShowLostCharacters(lost);
    return hasRows;
}
