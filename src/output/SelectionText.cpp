#include "output/SelectionText.h"

#include <array>

#include "globals/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/SelectionSource.h"
#include "screen/Control.h"
#include "screen/Form.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

using Conditions = InquiryConditions;
using Flags = ConditionFlags;

/// Joins segments by two blanks. An empty segment counts, so four blanks can follow one another.
class Segments {
  public:
    void Add(const QString& segment) {
        if (any_) text_ += u"  "_s;
        text_ += segment;
        any_ = true;
    }
    const QString& Text() const { return text_; }

  private:
    QString text_;
    bool any_ = false;
};

struct SearchText {
    bool Flags::*listed;
    QString window;
    QString label;
    QString Conditions::*text;
};

/// In the order of the text, not of the screen. These labels end in a full-width colon, those of the ranges in a
/// half-width one.
const std::array<SearchText, 5>& SearchTexts() {
    static const std::array<SearchText, 5> texts = {{
        {&Flags::NameListGiven, u"wnd担当者名複数指定"_s, u"検索担当者名："_s, &Conditions::SearchName},
        {&Flags::KanaListGiven, u"wnd担当者カナ複数指定"_s, u"検索担当者カナ："_s, &Conditions::SearchKana},
        {&Flags::AddressListGiven, u"wnd担当者住所複数指定"_s, u"検索担当者住所："_s, &Conditions::SearchAddress},
        {&Flags::PhoneListGiven, u"wnd担当者電話複数指定"_s, u"検索担当者電話："_s, &Conditions::SearchPhone},
        {&Flags::ZipListGiven, u"wnd担当者郵便番号複数指定"_s, u"検索担当者郵便番号："_s, &Conditions::SearchZip},
    }};
    return texts;
}

struct CodeRange {
    bool Flags::*picked;
    QString window;
    QString label;
    Range range;
};

const std::array<CodeRange, 4>& CodeRanges() {
    static const std::array<CodeRange, 4> ranges = {{
        {&Flags::DepartmentPicked, u"wnd部門選択一覧"_s, u"部門コード範囲:"_s, Range::Department},
        {&Flags::SectionPicked, u"wndセクション選択一覧"_s, u"セクションコード範囲:"_s, Range::Section},
        {&Flags::PositionPicked, u"wnd役職選択一覧"_s, u"役職コード範囲:"_s, Range::Position},
        {&Flags::StaffPicked, u"wnd担当者選択一覧"_s, u"担当者コード範囲:"_s, Range::Staff},
    }};
    return ranges;
}

/// Empty if the window is not loaded.
QString DescribeWindow(const QString& window) {
    const SelectionSource* source = Globals().SelectionWindows.value(window, nullptr);
    return source == nullptr ? QString() : source->DescribeSelection();
}

/// The MaxValue of the item means "全て" and is not described.
void AddChoice(Segments& segments, int value, const QString& item, const QString& label) {
    const Form& form = *Globals().MainForm;
    if (value != form.Item(item).MaxValue()) segments.Add(label + form.Item(item + u"名称"_s).Text());
}

/// A blank text is not a condition; leading and trailing blanks of others are shown.
void AddSearchText(Segments& segments, const SearchText& search) {
    const QString& text = Globals().Conditions.*search.text;
    if (Globals().Flags.*search.listed)
        segments.Add(DescribeWindow(search.window));
    else if (!TrimBlanks(text).isEmpty())
        segments.Add(search.label + text);
}

void AddCodeRange(Segments& segments, const CodeRange& code) {
    const RangeDefinition& definition = DefinitionOf(code.range);
    const auto width = static_cast<int>(definition.mask.size());
    const QString& from = Globals().Conditions.*definition.from;
    const QString& to = Globals().Conditions.*definition.to;
    if (Globals().Flags.*code.picked)
        segments.Add(DescribeWindow(code.window));
    else if (from != DefaultRangeFrom(definition.mask, width) || to != DefaultRangeTo(definition.mask, width))
        segments.Add(code.label + from + u'～' + to);
}

}  // namespace

QString BuildSelectionText() {
    const Conditions& conditions = Globals().Conditions;
    Segments segments;
    AddChoice(segments, conditions.EnrolmentKind, u"在籍区分"_s, u"在籍区分："_s);
    AddChoice(segments, conditions.StaffClass, u"社員区分"_s, u"社員区分："_s);
    for (const SearchText& search : SearchTexts()) AddSearchText(segments, search);
    for (const CodeRange& code : CodeRanges()) AddCodeRange(segments, code);
    segments.Add(u"表示順："_s + Globals().MainForm->Item(u"表示順区分名称"_s).Text());
    return segments.Text();
}
