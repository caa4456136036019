#include "inquiry/ListStatus.h"

#include <QGuiApplication>

#include "globals/ProgramGlobals.h"
#include "inquiry/RowMarks.h"
#include "screen/Form.h"
#include "screen/StatusLine.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

QString Count(int number) { return FormatByMask(number, u"#,###,##0"_s); }

void Show(const QString& text) { ShowStatus(*Globals().MainForm, text); }

}  // namespace

void ShowRowCounts() {
    const int rows = Globals().LastRow + 1;
    Show(rows > 0 ? Count(rows) + u" 件　印 "_s + Count(MarkedRowCount()) + u" 件"_s : u"該当する要員はいません。"_s);
}

void ClearStatus() { Show(QString()); }

void ShowOutputDone(const QString& done) { Show(Count(MarkedRowCount()) + u' ' + done); }

AwaitedProgram::AwaitedProgram(const QString& program) {
    Show(program + u" で作業中です。"_s);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

AwaitedProgram::~AwaitedProgram() {
    QGuiApplication::restoreOverrideCursor();
    ShowRowCounts();
}
