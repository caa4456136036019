#include "selection/ValueWindowDefinitions.h"

using namespace Qt::StringLiterals;

namespace {
using Flags = ConditionFlags;

constexpr int kFullWidth = 500;
constexpr int kHalfWidth = 270;
}  // namespace

const std::array<ValueWindowDefinition, 5>& ValueWindowDefinitions() {
    static const CharacterClasses anything = CharacterClass::DblByte | CharacterClass::All;
    static const CharacterClasses numbers = CharacterClass::Num | CharacterClass::Symbol;
    static const std::array<ValueWindowDefinition, 5> windows = {{
        {u"wnd担当者名複数指定"_s, u"担当者名"_s, u"btn_名称複数指定"_s, u"検索名称"_s, &Flags::NameListGiven,
         ImeMode::On, anything, kFullWidth},
        {u"wnd担当者カナ複数指定"_s, u"担当者カナ"_s, u"btn_カナ複数指定"_s, u"検索カナ"_s, &Flags::KanaListGiven,
         ImeMode::HalfKatakana, CharacterClass::Kana, kHalfWidth},
        {u"wnd担当者住所複数指定"_s, u"担当者住所"_s, u"btn_住所複数指定"_s, u"検索住所"_s, &Flags::AddressListGiven,
         ImeMode::On, anything, kFullWidth},
        {u"wnd担当者電話複数指定"_s, u"担当者電話"_s, u"btn_電話複数指定"_s, u"検索電話"_s, &Flags::PhoneListGiven,
         ImeMode::Off, numbers, kHalfWidth},
        {u"wnd担当者郵便番号複数指定"_s, u"担当者郵便番号"_s, u"btn_郵便番号複数指定"_s, u"検索郵便番号"_s,
         &Flags::ZipListGiven, ImeMode::Off, numbers, kHalfWidth},
    }};
    return windows;
}
