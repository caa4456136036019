#pragma once

#include <QString>
#include <QStringView>
#include <array>
#include <span>

class Form;

/// Input and validation of an item of the registration form.
enum class StaffItemKind {
    Text,       ///< any text
    Kana,       ///< kana are converted to half-width while typing
    HalfWidth,  ///< half-width characters only, as in a telephone number
    Code,       ///< a code or class of a master table
    Date,       ///< yyyymmdd, a calendar date
};

/// A column of M担当者 that can be edited.
struct StaffItem {
    QStringView column;
    QStringView caption;  ///< name on the form and in messages
    StaffItemKind kind;
    int bytes;  ///< maximum length in code page 932
    bool required;
    QStringView master = {};  ///< Code only: the master table
    QStringView key = {};     ///< Code only: its key column
    QStringView list = {};    ///< Code only: the item that lists the names
};

inline constexpr auto kStaffItems = std::to_array<StaffItem>({
    {u"氏名", u"氏名", StaffItemKind::Text, 20, true},
    {u"カナ", u"カナ", StaffItemKind::Kana, 20, false},
    {u"性別区分", u"性別", StaffItemKind::Code, 1, true, u"K性別区分", u"区分", u"性別区分名"},
    {u"郵便番号", u"郵便番号", StaffItemKind::HalfWidth, 8, false},
    {u"住所A", u"住所A", StaffItemKind::Text, 40, false},
    {u"住所B", u"住所B", StaffItemKind::Text, 40, false},
    {u"住所C", u"住所C", StaffItemKind::Text, 40, false},
    {u"電話", u"電話", StaffItemKind::HalfWidth, 16, false},
    {u"携帯電話", u"携帯電話", StaffItemKind::HalfWidth, 16, false},
    {u"EMAIL", u"EMAIL", StaffItemKind::HalfWidth, 40, false},
    {u"事業所コード", u"事業所", StaffItemKind::Code, 3, false, u"M事業所", u"コード", u"事業所名"},
    {u"部門コード", u"部門", StaffItemKind::Code, 3, false, u"M部門", u"コード", u"部門名"},
    {u"セクションコード", u"所属", StaffItemKind::Code, 3, false, u"Mセクション", u"コード", u"セクション名"},
    {u"役職コード", u"役職", StaffItemKind::Code, 2, false, u"M役職", u"コード", u"役職名"},
    // Required, since the inquiry's inner joins drop staff without a class.
    {u"在籍区分", u"在籍区分", StaffItemKind::Code, 1, true, u"K在籍区分", u"区分", u"在籍区分名"},
    {u"社員区分", u"社員区分", StaffItemKind::Code, 1, true, u"K社員区分", u"区分", u"社員区分名"},
    {u"生年月日", u"生年月日", StaffItemKind::Date, 8, false},
    {u"入社日付", u"入社日付", StaffItemKind::Date, 8, false},
    {u"退社日付", u"退社日付", StaffItemKind::Date, 8, false},
    {u"担当者メモ", u"メモ", StaffItemKind::Text, 80, false},
});

inline constexpr size_t kStaffItemCount = kStaffItems.size();

/// Values of the items in their order. Null and empty text are not distinguished.
using StaffValues = std::array<QString, kStaffItemCount>;

/// A person as stored in the table.
struct StaffRecord {
    QString 担当者コード;
    StaffValues values;
    QString 登録日付, 更新日付;  ///< timestamps yyyymmdd hhnnss, empty if not set
    bool operator==(const StaffRecord&) const = default;
};

/// Creates the controls of the registration form in tab order (RegistrationLayout.cpp): prg_ttl and the staff code; for
/// each of kStaffItems its title and item, with the list of names next to a code and a label named column + 年号 next
/// to a date; the two timestamps; お知らせ and the buttons.
void BuildRegistrationForm(Form& form);
