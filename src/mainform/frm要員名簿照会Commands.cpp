// Part of frm要員名簿照会.h: the handlers of the command buttons.

#include <QDir>
#include <optional>

#include "access/ProgramRights.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/ListStatus.h"
#include "inquiry/ScreenState.h"
#include "inquiry/StaffQuery.h"
#include "mainform/frm要員名簿照会.h"
#include "output/Outputs.h"
#include "platform/Services.h"
#include "screen/PendingInput.h"
#include "screen/modクライアント処理.h"
#include "screen/modマニュアル.h"
#include "screen/msgお待ち.h"
#include "selection/OpenListWindow.h"
#include "selection/wnd担当者複数指定.h"

using namespace Qt::StringLiterals;

namespace {

const QString kPrintQuestion = u"印刷しますか?"_s;
const QString kPrinted = u"名を印刷しました。"_s;

/// Errors from the dialog on are silently ignored without cleanup: after a write error the form stays disabled and the
/// wait dialog stays open.
void AskAndOutputText() {
    ProgramGlobals& globals = Globals();
    const QString filter = u"テキスト ファイル (*.txt)|*.txt|CSV ファイル (*.csv)|*.csv"_s;
    try {
        const std::optional<QString> chosen =
            platform::Services().dialogs->ShowSave({filter, 2, globals.TextOutputFileName});
        if (!chosen) return;
        globals.TextOutputFileName = *chosen;
        if (RunTextOutput()) ShowOutputDone(u"名を "_s + *chosen + u" に出力しました。"_s);
    } catch (const platform::RuntimeError&) {
        return;
    }
}

bool Permitted(Operation operation) {
    return CheckProgramPermission(Globals().MenuName, Globals().ProgramId, operation);
}

}  // namespace

/// An output button with a confirmation.
struct frm要員名簿照会::OutputButton {
    QString button;
    Operation operation;
    QString question;
    bool (*action)();
    QString done;  ///< for ShowOutputDone

    static QList<OutputButton> All() {
        return {
            {u"btn_印刷"_s, Operation::Print, kPrintQuestion, RunReportPrint, kPrinted},
            {u"btn_プレビュ"_s, Operation::Preview, u"プレビュしますか?"_s, RunReportPreview,
             u"名をプレビュしました。"_s},
            {u"btn_封筒"_s, Operation::Print, kPrintQuestion, RunEnvelopePrint, kPrinted},
            {u"btn_はがき"_s, Operation::Print, kPrintQuestion, RunPostcardPrint, kPrinted},
            {u"btn_宛名ラベル"_s, Operation::Print, kPrintQuestion, RunLabelPrint, kPrinted},
        };
    }
};

void frm要員名簿照会::ConnectCommands() {
    Item(u"btn_集計検索"_s).Click = Guarded([this] { Search(); });
    Item(u"btn_画面クリア"_s).Click = Guarded([this] { Clear(); });
    for (const OutputButton& output : OutputButton::All())
        Item(output.button).Click = Guarded([this, output] { Output(output); });
    Item(u"btn_テキスト出力"_s).Click = Guarded([this] { OutputText(); });
    for (const TextCondition& text : TextConditions())
        Item(text.selection.button).Click = Guarded([&text] { OpenValueWindow(text); });
    for (const RangeCondition& range : RangeConditions())
        Item(range.selection.button).Click = Guarded([&range] { OpenSelectionWindow(range); });
    // After the last item of the head: focus or a key validates the head and does not move the focus.
    Control& headEnd = Item(u"ヘッド終了"_s);
    headEnd.GotFocus = Guarded([this] { ItemClicked(1, 0, u"btn_集計検索"_s); });
    headEnd.KeyDown = [this](int) { Guarded([this] { ItemClicked(1, 0, u"btn_集計検索"_s); })(); };
    // These three have no guard: they are always available.
    Item(u"btn_終了"_s).Click = [this] { Leave(); };
    Item(u"manualpanel"_s).Click = [] { OpenManual(Globals().Layout.ManualFolder, Globals().ProgramId); };
    Item(u"prg_ttl"_s).Click = [this] { MoveFocus(*Globals().LastHeadItem); };
}

void frm要員名簿照会::Search() {
    const int missing = ValidateHead();
    // A missing end of positions or staff does not prevent the search; with an empty bound it finds nothing.
    if (missing == 1 || missing == 2) {
        FocusMissingRangeEnd(missing);
        return;
    }
    ShowWaitDialog();
    DisableFormControls(Globals().MainForm);
    ResetRowStore();
    RunStaffSearch();
    EnableFormControls(Globals().MainForm);
    RefreshScreen();
    SetupScrollBar();
    UnloadWaitDialog();
    DropPendingInput();
    MoveFocus(*Globals().FirstHeadItem);
}

void frm要員名簿照会::Clear() {
    CloseConditionWindows();
    RefreshScreen();
    ResetListArea();
    SetupScrollBar();
    ClearStatus();
    MoveFocus(*Globals().FirstHeadItem);
}

void frm要員名簿照会::Output(const OutputButton& output) {
    if (Permitted(output.operation) && platform::Services().dialogs->Confirm(output.question)) {
        const bool done = output.action();
        DropPendingInput();
        if (done) ShowOutputDone(output.done);
    }
    MoveFocus(*Globals().LastHeadItem);
}

// The file dialog may have changed the working directory.
void frm要員名簿照会::OutputText() {
    if (Permitted(Operation::TextOutput)) {
        const QString programFolder = platform::Services().system->ApplicationFolder();
        AskAndOutputText();
        QDir::setCurrent(programFolder);
        DropPendingInput();
    }
    MoveFocus(*Globals().LastHeadItem);
}
