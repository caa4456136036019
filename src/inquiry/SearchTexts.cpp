// Part of SearchConditions.h: the search texts.

#include "inquiry/SearchConditions.h"

using namespace Qt::StringLiterals;

namespace {

using Conditions = InquiryConditions;
using Flags = ConditionFlags;

constexpr int kValueLength = 30;

// Telephone and postal code accept half-width characters only.
constexpr CharacterClasses kHalfWidth = CharacterClass::Kana | CharacterClass::Lower | CharacterClass::Num |
                                        CharacterClass::NumExt | CharacterClass::Space | CharacterClass::Symbol |
                                        CharacterClass::Upper;
constexpr CharacterClasses kAnyValue = CharacterClass::DblByte | CharacterClass::All;
constexpr CharacterClasses kNumberValue = CharacterClass::Num | CharacterClass::Symbol;

ItemDesign TextDesign(int maxLength, ImeMode ime, CharacterClasses classes) {
    return {.maxLength = maxLength, .imeMode = ime, .classes = classes, .text = {}};
}

TextCondition Names() {
    return {.id = SearchText::Name,
            .field = &Conditions::SearchName,
            .item = u"検索名称"_s,
            .width = 330,
            .design = TextDesign(20, ImeMode::On, CharacterClass::All),
            .cut = true,
            .fullWidth = true,
            .columns = {u"氏名"_s},
            .valueItem = u"担当者名"_s,
            .valueDesign = TextDesign(kValueLength, ImeMode::On, kAnyValue),
            .selection = {.flag = &Flags::NameListGiven,
                          .window = u"wnd担当者名複数指定"_s,
                          .button = u"btn_名称複数指定"_s,
                          .caption = u"名称複数指定"_s}};
}

TextCondition Kana() {
    return {.id = SearchText::Kana,
            .field = &Conditions::SearchKana,
            .item = u"検索カナ"_s,
            .width = 330,
            .design = TextDesign(20, ImeMode::HalfKatakana, CharacterClass::All),
            .cut = true,
            .fullWidth = false,
            .columns = {u"カナ"_s},
            .valueItem = u"担当者カナ"_s,
            .valueDesign = TextDesign(kValueLength, ImeMode::HalfKatakana, CharacterClass::Kana),
            .selection = {.flag = &Flags::KanaListGiven,
                          .window = u"wnd担当者カナ複数指定"_s,
                          .button = u"btn_カナ複数指定"_s,
                          .caption = u"カナ複数指定"_s}};
}

TextCondition Addresses() {
    return {.id = SearchText::Address,
            .field = &Conditions::SearchAddress,
            .item = u"検索住所"_s,
            .width = 330,
            .design = TextDesign(40, ImeMode::On, CharacterClass::All),
            .cut = true,
            .fullWidth = true,
            .columns = {u"住所A"_s, u"住所B"_s, u"住所C"_s},
            .valueItem = u"担当者住所"_s,
            .valueDesign = TextDesign(kValueLength, ImeMode::On, kAnyValue),
            .selection = {.flag = &Flags::AddressListGiven,
                          .window = u"wnd担当者住所複数指定"_s,
                          .button = u"btn_住所複数指定"_s,
                          .caption = u"住所複数指定"_s}};
}

TextCondition Phones() {
    return {.id = SearchText::Phone,
            .field = &Conditions::SearchPhone,
            .item = u"検索電話"_s,
            .width = 160,
            .design = TextDesign(16, ImeMode::Disabled, kHalfWidth),
            .cut = false,
            .fullWidth = false,
            .columns = {u"電話"_s},
            .valueItem = u"担当者電話"_s,
            .valueDesign = TextDesign(kValueLength, ImeMode::Off, kNumberValue),
            .selection = {.flag = &Flags::PhoneListGiven,
                          .window = u"wnd担当者電話複数指定"_s,
                          .button = u"btn_電話複数指定"_s,
                          .caption = u"電話複数指定"_s}};
}

TextCondition Zips() {
    return {.id = SearchText::Zip,
            .field = &Conditions::SearchZip,
            .item = u"検索郵便番号"_s,
            .width = 96,
            .design = TextDesign(8, ImeMode::Disabled, kHalfWidth),
            .cut = false,
            .fullWidth = false,
            .columns = {u"郵便番号"_s},
            .valueItem = u"担当者郵便番号"_s,
            .valueDesign = TextDesign(kValueLength, ImeMode::Off, kNumberValue),
            .selection = {.flag = &Flags::ZipListGiven,
                          .window = u"wnd担当者郵便番号複数指定"_s,
                          .button = u"btn_郵便番号複数指定"_s,
                          .caption = u"郵便番号複数指定"_s}};
}

}  // namespace

const std::array<TextCondition, kSearchTextCount>& TextConditions() {
    static const std::array<TextCondition, kSearchTextCount> texts = {{Names(), Kana(), Addresses(), Phones(), Zips()}};
    return texts;
}

const TextCondition& ConditionOf(SearchText id) { return TextConditions()[static_cast<size_t>(id)]; }
