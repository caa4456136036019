// Part of TemplateSyntax.h: the settings of a line.

#include "report-host/template/TemplateSyntax.h"

#include <QSet>
#include <algorithm>

#include "report-host/template/TemplateDefinition.h"
#include "report-host/template/TemplateValues.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

template <typename Value>
struct Word {
    const char16_t* word;
    Value value;
};

constexpr Word<SuiteFace> kFaces[] = {{u"明朝", SuiteFace::Mincho},
                                      {u"Ｐ明朝", SuiteFace::PMincho},
                                      {u"ゴシック", SuiteFace::Gothic},
                                      {u"Ｐゴシック", SuiteFace::PGothic}};
// Horizontal and vertical writing have different words for the same alignment.
constexpr Word<Along> kAlong[] = {{u"左", Along::Start}, {u"上", Along::Start}, {u"中央", Along::Middle},
                                  {u"右", Along::End},   {u"下", Along::End},   {u"均等", Along::Spread}};
constexpr Word<Across> kAcross[] = {{u"先頭", Across::Start}, {u"中央", Across::Middle}, {u"末尾", Across::End}};
constexpr Word<Fitting> kFittings[] = {{u"縮小", Fitting::Shrink},
                                       {u"長体", Fitting::Condense},
                                       {u"折返し", Fitting::Wrap},
                                       {u"長体折返し", Fitting::CondenseWrap},
                                       {u"省略", Fitting::Cut}};

using Apply = void (*)(SettingTarget&, const QString& value, const QString& what);

struct SettingRule {
    QStringView commands;  // separated by blanks
    QStringView name;
    bool isFlag;
    Apply apply;
};

CellGrid& Grid(SettingTarget& t) { return *t.definition.grid; }

const SettingRule kRules[] = {
    {u"用紙", u"横", true, [](auto& t, auto&, auto&) { t.definition.page.transpose(); }},
    {u"余白", u"左", false, [](auto& t, auto& v, auto& w) { t.definition.margins.setLeft(ReadNumber(v, w)); }},
    {u"余白", u"上", false, [](auto& t, auto& v, auto& w) { t.definition.margins.setTop(ReadNumber(v, w)); }},
    {u"余白", u"右", false, [](auto& t, auto& v, auto& w) { t.definition.margins.setRight(ReadNumber(v, w)); }},
    {u"余白", u"下", false, [](auto& t, auto& v, auto& w) { t.definition.margins.setBottom(ReadNumber(v, w)); }},
    {u"補正", u"右", false, [](auto& t, auto& v, auto& w) { t.definition.offset.setX(ReadNumber(v, w)); }},
    {u"補正", u"下", false, [](auto& t, auto& v, auto& w) { t.definition.offset.setY(ReadNumber(v, w)); }},
    {u"升目", u"横", false, [](auto& t, auto& v, auto& w) { Grid(t).across = ReadCount(v, w); }},
    {u"升目", u"縦", false, [](auto& t, auto& v, auto& w) { Grid(t).down = ReadCount(v, w); }},
    {u"升目", u"左", false, [](auto& t, auto& v, auto& w) { Grid(t).first.setX(ReadNumber(v, w)); }},
    {u"升目", u"上", false, [](auto& t, auto& v, auto& w) { Grid(t).first.setY(ReadNumber(v, w)); }},
    {u"升目", u"横間隔", false, [](auto& t, auto& v, auto& w) { Grid(t).pitchX = ReadLength(v, w); }},
    {u"升目", u"縦間隔", false, [](auto& t, auto& v, auto& w) { Grid(t).pitchY = ReadLength(v, w); }},
    {u"升目", u"項目", false, [](auto& t, auto& v, auto&) { Grid(t).prefixes = v.split(u','); }},
    {u"明細", u"縞", false, [](auto& t, auto& v, auto& w) { t.definition.stripe = ReadColour(v, w); }},
    {u"文字 数字枠", u"書体", false, [](auto& t, auto& v, auto&) { t.element.style.face = ReadFace(v); }},
    {u"文字 数字枠", u"大きさ", false, [](auto& t, auto& v, auto& w) { t.element.style.points = ReadPoints(v, w); }},
    {u"文字", u"最小", false, [](auto& t, auto& v, auto& w) { t.element.style.leastPoints = ReadPoints(v, w); }},
    {u"文字", u"行送り", false,
     [](auto& t, auto& v, auto& w) { t.element.style.lineStep = ReadAtLeast(v, w, kLeastLineStep); }},
    {u"文字", u"行数", false, [](auto& t, auto& v, auto& w) { t.element.style.mostLines = ReadCount(v, w); }},
    {u"文字", u"寄せ", false, [](auto& t, auto& v, auto& w) { t.element.style.along = ReadChoice(v, w, kAlong); }},
    {u"文字", u"行寄せ", false, [](auto& t, auto& v, auto& w) { t.element.style.across = ReadChoice(v, w, kAcross); }},
    {u"文字", u"収め", false, [](auto& t, auto& v, auto& w) { t.element.style.fitting = ReadChoice(v, w, kFittings); }},
    {u"文字", u"縦書き", true, [](auto& t, auto&, auto&) { t.element.style.vertical = true; }},
    {u"文字", u"漢数字", true, [](auto& t, auto&, auto&) { t.element.style.kanjiNumerals = true; }},
    {u"文字", u"続き", true, [](auto& t, auto&, auto&) { t.element.follows = true; }},
    {u"文字 数字枠 線 枠", u"色", false, [](auto& t, auto& v, auto& w) { t.element.colour = ReadColour(v, w); }},
    {u"線 枠", u"太さ", false, [](auto& t, auto& v, auto& w) { t.element.penWidth = ReadLength(v, w); }},
    {u"枠", u"線なし", true, [](auto& t, auto&, auto&) { t.element.penWidth = 0; }},
    {u"枠", u"塗り", false, [](auto& t, auto& v, auto& w) { t.element.fill = ReadColour(v, w); }},
    {u"数字枠", u"左端", false, [](auto& t, auto& v, auto& w) { t.element.lefts = ReadNumbers(v, w); }},
    {u"数字枠", u"枠色", false, [](auto& t, auto& v, auto& w) { t.element.fill = ReadColour(v, w); }},
    {u"文字 数字枠 線 枠 絵", u"ただし", false, [](auto& t, auto& v, auto&) { t.element.onlyWith = v; }},
    {u"文字 数字枠 線 枠 絵", u"空なら", false, [](auto& t, auto& v, auto&) { t.element.onlyWithout = v; }},
};

const SettingRule* FindRule(const QString& command, const QString& name) {
    const auto rule = std::find_if(std::begin(kRules), std::end(kRules), [&](const SettingRule& r) {
        return r.name == name && r.commands.toString().split(u' ').contains(command);
    });
    return rule == std::end(kRules) ? nullptr : rule;
}

}  // namespace

double ReadPoints(const QString& text, const QString& what) { return ReadAtLeast(text, what, kLeastPoints); }

SuiteFace ReadFace(const QString& text) { return ReadChoice(text, u"書体"_s, kFaces); }

void ApplySettings(const TemplateToken& line, qsizetype firstWord, SettingTarget target) {
    QSet<QString> seen;
    for (const TemplateWord& word : line.words.mid(firstWord)) {
        const QString name = word.IsSetting() ? word.name : word.text;
        const SettingRule* rule = word.quoted && !word.IsSetting() ? nullptr : FindRule(line.command, name);
        if (!rule) throw TemplateError{0, u"%1に「%2」という指定はありません。"_s.arg(line.command, name)};
        if (rule->isFlag && word.IsSetting()) throw TemplateError{0, u"「%1」に値は付けられません。"_s.arg(name)};
        if (!rule->isFlag && word.text.isEmpty()) throw TemplateError{0, u"「%1」の値がありません。"_s.arg(name)};
        if (!rule->isFlag && !word.IsSetting()) throw TemplateError{0, u"「%1」の値がありません。"_s.arg(name)};
        if (seen.contains(name)) throw TemplateError{0, u"「%1」が二度あります。"_s.arg(name)};
        seen.insert(name);
        rule->apply(target, word.text, name);
    }
}

}  // namespace report
