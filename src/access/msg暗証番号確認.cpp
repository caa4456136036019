#include "access/msg暗証番号確認.h"

#include "access/ProgramRights.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "platform/SealedPins.h"
#include "platform/Services.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kTooShort = 3;
const QString kCodeMask = u"00000"_s;

/// Enrolled staff (on their last day no longer) of the office in scope or of the whole company.
QString StaffStatement(const QString& column, const QString& value) {
    const QString today = platform::Services().clock->Now().toString(u"yyyyMMdd"_s);
    return u"SELECT M担当者.* FROM M担当者 WHERE M担当者."_s + column + u" = '"_s + value +
           u"' AND (M担当者.在籍区分 = '0'"
           u" OR (M担当者.在籍区分 = '1' AND M担当者.退社日付 <>'' AND M担当者.退社日付 > '"_s +
           today + u"')) AND (M担当者.事業所コード = '"_s + Globals().ScopeOfficeCode +
           u"' OR M担当者.事業所コード = '000')"_s;
}

/// A Null allows here, whereas the load at the start keeps the right's value.
void TakeRights(const database::Recordset& record) {
    StaffIdentity& staff = Globals().Staff;
    staff.LoginId = record[u"ログインID"].TextOr(QString());
    staff.AccessLevel = NumericValue(record[u"アクセス権限"].TextOr(QString()));
    for (size_t i = 0; i < kClassRightColumns.size(); ++i)
        staff.ClassRights[i] = record[kClassRightColumns[i]].TextOr(u"0"_s);
    for (size_t i = 0; i < kOperationRightColumns.size(); ++i)
        staff.OperationRights[i] = record[kOperationRightColumns[i]].TextOr(QString());
}

void ShowPerson(const Form& form, const database::Recordset& record) {
    form.Item(u"担当者コード"_s).SetText(record[u"コード"].TextOr(QString()));
    form.Item(u"担当者名"_s).SetText(record[u"氏名"].TextOr(QString()));
}

}  // namespace

msg暗証番号確認::msg暗証番号確認() : Form(u"msg暗証番号確認"_s) {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    BuildPinDialog(*this);
    ConnectItems();
    Load = [this] { OnLoad(); };
    Unload = [this] { platform::WipeText(clearPin_); };
}

msg暗証番号確認::~msg暗証番号確認() { platform::WipeText(clearPin_); }

void msg暗証番号確認::ConnectItems() {
    Control &code = Item(u"担当者コード"_s), &pin = Item(u"暗証番号"_s), &cancel = Item(u"btn_キャンセル"_s);
    // btn_OK gets the focus when the PIN is left or the button is clicked, and that confirms. A Click handler would
    // confirm twice.
    Item(u"btn_OK"_s).GotFocus = [this] { ConfirmPinEntry(); };
    cancel.Click = [this] { UnloadForm(); };
    Closing = cancel.Click;
    code.LostFocus = [this, &code] {
        code.SetText(FormatCodeByMask(code.Text(), kCodeMask));
        bool found = false;
        LookUpStaffByCode(code.Text(), found);
    };
    pin.GotFocus = [&code] {
        if (code.Text().isEmpty()) code.SetFocus();
    };
    Item(u"担当者名"_s).GotFocus = [&pin] { pin.SetFocus(); };
    for (const QString& title : {u"itm_ttl_暗証番号"_s, u"itm_ttl_担当者名"_s})
        Item(title).Click = [&pin] { pin.SetFocus(); };
    Item(u"itm_ttl_担当者コード"_s).Click = [&code] { code.SetFocus(); };
}

void msg暗証番号確認::OnLoad() {
    for (const QString& name : {u"担当者コード"_s, u"担当者名"_s, u"暗証番号"_s}) Item(name).SetText(QString());
    Globals().Staff.LaunchingStaffCode.clear();
    bool found = false;
    LookUpStaffByLogin(Globals().OsUserName, found);
    // Stays visible, so that users see as whom they sign in.
    if (found) Item(u"担当者コード"_s).SetEnabled(false);
}

void msg暗証番号確認::LookUpStaffByLogin(const QString& name, bool& found) {
    platform::WipeText(clearPin_);
    database::Recordset record;
    found = OpenRecordset(record, StaffStatement(u"ログインID"_s, QuoteSqlText(name)));
    if (found) ShowPerson(*this, record);
    CloseQuietly(record);
    if (found) LookUpStaffByCode(Item(u"担当者コード"_s).Text(), found);
}

void msg暗証番号確認::LookUpStaffByCode(const QString& code, bool& found) {
    // Must be first: otherwise an unknown code could be used with the PIN of the previous person.
    platform::WipeText(clearPin_);
    database::Recordset record;
    found = OpenRecordset(record, StaffStatement(u"コード"_s, code));
    if (found) {
        ShowPerson(*this, record);
        const database::Field stored = record[u"暗証番号"];
        if (!stored.IsNull()) clearPin_ = platform::Services().pins->ClearText(stored.Text());
        TakeRights(record);
    }
    CloseQuietly(record);
}

// The entry is upper case but stored PINs are not converted, so a stored PIN with lower-case letters cannot be entered.
// The office's privileged PIN matches for any code.
bool msg暗証番号確認::Matches(const QString& entry) const {
    return entry == Globals().Office.特権暗証番号 || entry == clearPin_;
}

void msg暗証番号確認::Refuse(const QString& message) {
    Globals().Staff.LaunchingStaffCode.clear();
    Globals().OperatorAuthenticated = false;
    platform::Services().dialogs->ShowMessage(message);
    Item(u"暗証番号"_s).SetFocus();
}

void msg暗証番号確認::SignIn() {
    Globals().Staff.LaunchingStaffCode = Item(u"担当者コード"_s).Text();
    SaveLaunchStaffCode();
    Globals().OperatorAuthenticated = true;
    UnloadForm();
}

void msg暗証番号確認::ConfirmPinEntry() {
    const QString entry = Item(u"暗証番号"_s).Text().toUpper();
    // Also rejects an empty PIN, e.g. if the stored one could not be decrypted.
    if (entry.size() <= kTooShort) return Refuse(u"暗証番号を入力してください。"_s);
    if (!Matches(entry)) return Refuse(u"暗証番号が違います。"_s);
    SignIn();
}

void AskForPin(const QString& caption) {
    auto* dialog = new msg暗証番号確認;
    dialog->setWindowTitle(caption);
    dialog->ShowModal();
}
