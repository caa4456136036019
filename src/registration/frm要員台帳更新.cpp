#include "registration/frm要員台帳更新.h"

#include <QComboBox>
#include <algorithm>
#include <chrono>

#include "access/ProgramRights.h"
#include "data/EraDates.h"
#include "globals/ProgramGlobals.h"
#include "platform/Services.h"
#include "registration/StaffChecks.h"
#include "screen/PendingInput.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds kFirstPause = 1s, kLongestPause = 60s;

bool IsPermitted(Operation operation) {
    return CheckProgramPermission(Globals().MenuName, Globals().ProgramId, operation);
}

/// "yyyymmdd hhnnss" as yyyy/MM/dd HH:mm:ss; other text unchanged.
QString StampForDisplay(const QString& stamp) {
    const QDateTime time = QDateTime::fromString(stamp, u"yyyyMMdd HHmmss"_s);
    return time.isValid() ? time.toString(u"yyyy/MM/dd HH:mm:ss"_s) : stamp;
}

QString Notice(const QString& text, int bytes) {
    const int over = OverflowCount(text, bytes);
    return over > 0 ? QString::number(over) + u"文字オーバーです。"_s : QString();
}

}  // namespace

frm要員台帳更新::frm要員台帳更新(std::function<void()> leave, std::function<bool()> answer)
    : Form(u"frm要員台帳更新"_s), leave_(std::move(leave)), answer_(std::move(answer)) {
    setWindowTitle(u"要員台帳更新"_s);
    BuildRegistrationForm(*this);
    ConnectItems();
    retryTimer_.setInterval(kFirstPause);
    retryTimer_.callOnTimeout(this, [this] { RunEvent([this] { RetryAnswer(); }); });
    Closing = EscapePressed = [this] { End(); };
    Item(u"btn_保存"_s).Click = [this] { Save(); };
    Item(u"btn_削除"_s).Click = [this] { Delete(); };
    Item(u"btn_終了"_s).Click = [this] { End(); };
}

void frm要員台帳更新::ConnectItems() {
    for (size_t i = 0; i < kStaffItemCount; ++i) {
        Control& item = ItemOf(i);
        Item(u"itm_ttl_"_s + item.Name()).Click = [&item] { item.SetFocus(); };
        switch (kStaffItems[i].kind) {
            case StaffItemKind::Code:
                ConnectCode(i);
                break;
            case StaffItemKind::Date:
                ConnectDate(i);
                break;
            default:
                item.Change = [this, &item, bytes = kStaffItems[i].bytes] {
                    Item(u"お知らせ"_s).SetCaption(Notice(item.Text(), bytes));
                };
        }
    }
}

/// Synchronises code and list: a typed code selects its list entry, a chosen entry sets the code.
void frm要員台帳更新::ConnectCode(size_t i) {
    const StaffItem& design = kStaffItems[i];
    Control &code = ItemOf(i), &list = Item(design.list.toString());
    code.Change = [this, &code, &list, i] { list.SetListIndex(IndexOfCode(masters_[i], code.Text())); };
    code.LostFocus = [&code, mask = RepeatZero(design.bytes)] {
        code.SetText(FormatCodeByMask(TrimBlanks(code.Text()), mask));
    };
    list.Click = [this, &code, &list, i] {
        if (list.ListIndex() >= 0) code.SetText(masters_[i].at(list.ListIndex()).code);
    };
    code.DblClick = [&list] { static_cast<QComboBox&>(list.Widget()).showPopup(); };
    code.KeyDown = [&code](int key) {
        if (key == kKeyControl) code.DblClick();
    };
}

void frm要員台帳更新::ConnectDate(size_t i) {
    Control &date = ItemOf(i), &era = Item(date.Name() + u"年号"_s);
    date.Change = [&date, &era] { era.SetCaption(IsDate(date.Text()) ? EraDateLong(date.Text()) : QString()); };
}

void frm要員台帳更新::FillLists() {
    for (size_t i = 0; i < kStaffItemCount; ++i) {
        if (kStaffItems[i].kind != StaffItemKind::Code) continue;
        Control& list = Item(kStaffItems[i].list.toString());
        list.ClearList();
        for (const MasterEntry& entry : masters_[i]) list.AddItem(entry.name);
        list.SetListIndex(-1);
    }
}

StoreOutcome frm要員台帳更新::Open(const QString& code) {
    const StoreOutcome outcome = store_.Load(code, record_);
    if (outcome != StoreOutcome::Done) return outcome;
    masters_ = LoadStaffMasters();
    FillLists();
    ShowRecord();
    store_.LogView(record_.担当者コード, ViewKind::Viewed);
    return outcome;
}

void frm要員台帳更新::ShowRecord() {
    Item(u"担当者コード"_s).SetCaption(record_.担当者コード);
    for (size_t i = 0; i < kStaffItemCount; ++i) {
        ItemOf(i).SetText(record_.values[i]);
        ItemOf(i).Change();  // also if the text is unchanged: the list or the era may be new
    }
    for (const auto& [name, stamp] : {std::pair{u"登録日付"_s, record_.登録日付}, {u"更新日付"_s, record_.更新日付}})
        Item(name).SetCaption(StampForDisplay(stamp));
    Item(u"お知らせ"_s).SetCaption(QString());
    shown_ = Entered();
}

StaffValues frm要員台帳更新::Entered() const {
    StaffValues values;
    for (size_t i = 0; i < kStaffItemCount; ++i) values[i] = ItemOf(i).Text();
    return values;
}

bool frm要員台帳更新::ShowFirstError(const StaffValues& entered) {
    const std::optional<ValidationError> error = FindValidationError(entered, shown_, masters_);
    if (!error) return false;
    platform::Services().dialogs->ShowMessage(error->message);
    ItemOf(error->item).SetFocus();
    return true;
}

void frm要員台帳更新::Save() {
    const StaffValues entered = Entered();
    if (ShowFirstError(entered) || !IsPermitted(Operation::Change)) return;
    Conclude(store_.Save(record_, entered), u"データベースに問題が発生し修正できませんでした。"_s);
    DropPendingInput();
}

void frm要員台帳更新::Delete() {
    const QString question = u"担当者コード %1 %2 を削除しますか?"_s.arg(record_.担当者コード, record_.values.front());
    if (!IsPermitted(Operation::Delete) || !platform::Services().dialogs->Confirm(question)) return;
    Conclude(store_.Delete(record_), u"データベースに問題が発生し削除できませんでした。"_s);
    DropPendingInput();
}

void frm要員台帳更新::Conclude(StoreOutcome outcome, const QString& failure) {
    switch (outcome) {
        case StoreOutcome::Done:
            return AnswerAndLeave();
        case StoreOutcome::Gone:
            // Nothing is left to edit; the program that started this one removes the row from its list.
            platform::Services().dialogs->ShowMessage(u"この担当者は他の端末で削除されています。"_s);
            return AnswerAndLeave();
        case StoreOutcome::Changed:
            return OfferToReadAgain();
        case StoreOutcome::Failed:
            return platform::Services().dialogs->ShowMessage(failure);
    }
}

/// Asks before discarding the clerk's input: after いいえ it can still be copied.
void frm要員台帳更新::OfferToReadAgain() {
    const bool wanted = platform::Services().dialogs->Confirm(
        u"この担当者は他の端末で修正されています。入力を取り消して読み直しますか?"_s);
    if (!wanted) return;
    const StoreOutcome outcome = Open(QString(record_.担当者コード));
    if (outcome != StoreOutcome::Done) Conclude(outcome, u"データベースに問題が発生し読み込めませんでした。"_s);
}

/// The starting program waits for the answer without a timeout, so this window stays open until it has been written.
void frm要員台帳更新::AnswerAndLeave() {
    if (answer_()) return leave_();
    SetEnabled(false);
    retryTimer_.start();
    platform::Services().dialogs->ShowMessage(
        u"起動元のプログラムに終了を通知できません。ディスクの空きとコンピューターの時計を確かめてください。"
        "この画面を開いている間は通知を繰り返し、通知できたときに画面を閉じます。"_s);
}

/// Retries at growing intervals, since each failure leaves a row in the run history.
void frm要員台帳更新::RetryAnswer() {
    retryTimer_.setInterval(std::min(2 * retryTimer_.intervalAsDuration(), kLongestPause));
    if (!answer_()) return;
    retryTimer_.stop();
    leave_();
}

void frm要員台帳更新::End() {
    if (retryTimer_.isActive()) return leave_();
    const bool lost = Entered() != shown_;
    if (lost && !platform::Services().dialogs->Confirm(u"修正が保存されていません。終了しますか?"_s)) return;
    AnswerAndLeave();
}
