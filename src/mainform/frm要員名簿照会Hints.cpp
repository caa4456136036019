// Part of frm要員名簿照会.h: the tooltips.

#include <QLineEdit>

#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "inquiry/SearchConditions.h"
#include "mainform/frm要員名簿照会.h"
#include "screen/Labels.h"

using namespace Qt::StringLiterals;

namespace {

void SetHint(const Form& form, const QString& item, const QString& hint) { form.Item(item).Widget().setToolTip(hint); }

/// What the user enters in the item, without the particle of the sentences below.
QString SubjectOf(SearchText text) {
    switch (text) {
        case SearchText::Name:
            return u"氏名"_s;
        case SearchText::Kana:
            return u"カナ"_s;
        case SearchText::Address:
            return u"住所"_s;
        case SearchText::Phone:
            return u"電話番号"_s;
        case SearchText::Zip:
            return u"郵便番号"_s;
    }
    return {};
}

void SetTextHints(const Form& form, const TextCondition& text) {
    const QString subject = SubjectOf(text.id);
    SetHint(form, text.item, subject + u"の一部で探します。"_s);
    SetHint(form, text.selection.button,
            u"複数の%1で探します。指定があると文字が緑色になり、右の項目は使えません。"_s.arg(subject));
}

/// The search by one telephone number finds nothing (StaffStatement.cpp), the one by several works.
void SetPhoneHints(const Form& form) {
    const TextCondition& phone = ConditionOf(SearchText::Phone);
    SetHint(form, phone.item,
            u"この項目では見つかりません。電話番号は「%1」で探してください。"_s.arg(phone.selection.caption));
    static_cast<QLineEdit&>(form.Item(phone.item).Widget()).setPlaceholderText(u"複数は"_s + phone.selection.caption);
}

void SetRangeHints(const Form& form, const RangeCondition& range) {
    const QString hint = u"範囲の%1のコードです。Ctrl キーまたはダブルクリックで一覧から選べます。"_s;
    SetHint(form, range.fromItem, hint.arg(u"始め"_s));
    SetHint(form, range.toItem, hint.arg(u"終わり"_s));
    SetHint(form, range.selection.button,
            u"コードを一つずつ選びます。選ぶと文字が緑色になり、右の範囲は使えません。"_s);
}

void SetKindHints(const Form& form, const KindCondition& kind) {
    const bool condition = !kind.column.isEmpty();
    const QString purpose = condition ? u"「全て」は条件になりません。"_s : u"一覧の並び順です。"_s;
    SetHint(form, kind.item, purpose + u"番号を入力するか、右の一覧から選びます。"_s);
    SetHint(form, kind.listItem, purpose + u"一覧から選ぶと、左に番号が入ります。"_s);
}

/// The meaning of the colour of a staff code.
QString MeaningOfCode(int position) {
    const int kind = Globals().Rows.閲覧区分[static_cast<size_t>(Globals().TopRow + position)];
    const bool logged = kind >= 0 && Globals().TopRow + position <= Globals().LastRow;
    if (!logged) return {};
    return kind == 0 ? u"青緑：台帳を閲覧したことのある要員です。"_s : u"緑：台帳を修正したことのある要員です。"_s;
}

}  // namespace

void SetHints(Form& form) {
    for (const TextCondition& text : TextConditions()) SetTextHints(form, text);
    SetPhoneHints(form);
    for (const RangeCondition& range : RangeConditions()) SetRangeHints(form, range);
    for (const KindCondition& kind : KindConditions()) SetKindHints(form, kind);
    SetHint(form, u"btn_集計検索"_s, u"上の条件に合う要員を一覧に出します。"_s);
    SetHint(form, u"btn_画面クリア"_s, u"条件を始めの値に戻し、一覧を空にします。"_s);
    for (int position = 0; position < kRowPositions; ++position)
        static_cast<LabelItem&>(form.Item(u"担当者コード"_s, position)).Hint = [position] {
            return MeaningOfCode(position);
        };
}
