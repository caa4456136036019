#include "report-host/template/TemplateParser.h"

#include <gtest/gtest.h>

#include "report-host/template/TemplateFile.h"

using namespace Qt::StringLiterals;
using namespace report;

namespace {

QStringList Mistakes(const QString& text) {
    QStringList reported;
    for (const TemplateError& mistake : ParseTemplate(text).errors) reported.append(mistake.Text());
    return reported;
}

struct WrongLine {
    const char16_t* line;  // third line of an otherwise valid template
    const char16_t* reason;
};

class TemplateErrorTest : public testing::TestWithParam<WrongLine> {};

}  // namespace

TEST_P(TemplateErrorTest, IsReportedWithLineAndReason) {
    const QString form = u"用紙 100x100\n明細 高さ=50\n%1\n"_s.arg(QString::fromUtf16(GetParam().line));
    EXPECT_EQ(Mistakes(form), QStringList{u"3 行目: "_s + QString::fromUtf16(GetParam().reason)});
}

INSTANTIATE_TEST_SUITE_P(
    TemplateParser, TemplateErrorTest,
    testing::Values(
        WrongLine{u"文章 0,0 9x9 \"あ\"", u"「文章」という命令はありません。"},
        WrongLine{u"\"文字\" 0,0 9x9", u"行が命令で始まっていません。"},
        WrongLine{u"=5", u"「=」の前に名前がありません。"},
        WrongLine{u"文字 0,0 9x9", u"文字の後ろに 左,上 幅x高さ \"内容\" を書いてください。"},
        WrongLine{u"文字 0,0 9x9 あ", u"内容を引用符「\"」で囲んでください。"},
        WrongLine{u"文字 0,0 9x9 \"あ", u"引用符が閉じていません。"},
        WrongLine{u"文字 0,0 9x9 \"あ\"縦書き", u"閉じる引用符の後ろに空白がありません。"},
        WrongLine{u"文字 0,0 9x9 \"[氏名\"", u"「[」が「]」で閉じていません。"},
        WrongLine{u"文字 0,0 9x9 \"[]\"", u"「[]」の中に列の名前がありません。"},
        WrongLine{u"文字 0,0 9x9 \"[〒|氏名]\"", u"「[〒|氏名]」は [前の文字|列|後の文字] の形で書いてください。"},
        WrongLine{u"文字 0,0 9x9 \"[〒||]\"", u"「[〒||]」は [前の文字|列|後の文字] の形で書いてください。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 行数=0", u"行数「0」は 0 より大きくしてください。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 続き=1", u"「続き」に値は付けられません。"},
        WrongLine{u"文字 0;0 9x9 \"あ\"", u"位置「0;0」は「左,上」の形で書いてください。"},
        WrongLine{u"文字 0,０ 9x9 \"あ\"", u"位置「０」は数ではありません。"},
        WrongLine{u"文字 0,0 9 \"あ\"", u"大きさ「9」は「幅x高さ」の形で書いてください。"},
        WrongLine{u"文字 0,0 9x0 \"あ\"", u"大きさ「0」は 0 より大きくしてください。"},
        WrongLine{u"文字 0,0 9x9999 \"あ\"", u"大きさ「9999」は大きすぎます。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 幅=3", u"文字に「幅」という指定はありません。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" \"い\"", u"文字に「い」という指定はありません。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 縦書き=1", u"「縦書き」に値は付けられません。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 色", u"「色」の値がありません。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 色=", u"「色」の値がありません。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 色=赤",
                  u"色「赤」は色ではありません。#rrggbb か 黒、白、灰、朱 で書いてください。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 大きさ=7 大きさ=8", u"「大きさ」が二度あります。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 大きさ=4", u"最小が大きさより大きくなっています。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 最小=0.4", u"最小「0.4」は 0.5 以上にしてください。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 大きさ=0.01", u"大きさ「0.01」は 0.5 以上にしてください。"},
        WrongLine{u"書体 明朝 0.1", u"書体の大きさ「0.1」は 0.5 以上にしてください。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 行送り=0.001", u"行送り「0.001」は 0.1 以上にしてください。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 大きさ=nan", u"大きさ「nan」は数ではありません。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 大きさ=1e9", u"大きさ「1e9」は数ではありません。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 書体=丸",
                  u"書体には 明朝、Ｐ明朝、ゴシック、Ｐゴシック のどれかを書いてください。「丸」は使えません。"},
        WrongLine{u"文字 0,0 9x9 \"あ\" 収め=捨てる",
                  u"収めには 縮小、長体、折返し、長体折返し、省略 のどれかを書いてください。「捨てる」は使えません。"},
        WrongLine{u"文字 60,0 41x9 \"あ\"", u"置き場所が幅 100、高さ 50 の外に出ています。"},
        WrongLine{u"線 0,0 10,50.5", u"置き場所が幅 100、高さ 50 の外に出ています。"},
        WrongLine{u"数字枠 0,0 5x8 \"[郵便番号]\"", u"数字枠に左端がありません。"},
        WrongLine{u"数字枠 0,0 5x8 \"[郵便番号]\" 左端=10,96", u"数字枠の左端が幅 100 の外に出ています。"},
        WrongLine{u"用紙 A4", u"「用紙」が二度あります。"},
        WrongLine{u"頁頭 10", u"頁頭の後ろに 高さ=… を書いてください。"},
        WrongLine{u"年号 20190431 令和", u"年号の開始日付「20190431」は日付（8 桁の年月日）ではありません。"},
        WrongLine{u"並び 順=コード", u"並びに「順」という指定はありません。"},
        WrongLine{u"升目 横=2 縦=1", u"升目に横間隔と縦間隔がありません。"},
        WrongLine{u"升目 縦=1 横間隔=50 縦間隔=50 横=1.5", u"横「1.5」は整数ではありません。"},
        WrongLine{u"升目 横=3 縦=1 横間隔=30 縦間隔=50 項目=A列,B列", u"升目の横の数が項目の数で割り切れません。"},
        WrongLine{u"升目 横=2 縦=3 横間隔=50 縦間隔=50", u"升目が用紙からはみ出しています。"}));

TEST(TemplateParser, WhatIsMissingFromTheWholeIsReportedWithoutALine) {
    EXPECT_EQ(Mistakes(u""_s), QStringList{u"用紙がありません。"_s});
    EXPECT_EQ(Mistakes(u"用紙 A4"_s), QStringList{u"明細がありません。"_s});
    EXPECT_EQ(Mistakes(u"用紙 A4\n文字 0,0 9x9 \"あ\"\n明細 高さ=9"_s),
              QStringList{u"2 行目: 文字は 頁頭、明細、頁脚 のどれかの後ろに書いてください。"_s});
    EXPECT_EQ(Mistakes(u"用紙 A4\n頁頭 高さ=200\n明細 高さ=98"_s),
              QStringList{u"3 行目: 余白、頁頭、頁脚の間に明細が一つも収まりません。"_s});
}

TEST(TemplateParser, FormWithoutEndIsNotRead) {
    const QString reason = u"定義が長すぎます。10000 行、1000000 文字までにしてください。"_s;
    EXPECT_EQ(Mistakes(QString(1'000'000, u'\n')), QStringList{reason});
    EXPECT_EQ(Mistakes(u"用紙 A4\n明細 高さ=9\n文字 0,0 9x9 \"%1\""_s.arg(QString(1'000'000, u'['))),
              QStringList{reason});
    const QString longest = u"用紙 A4\n明細 高さ=9"_s + QString(9'998, u'\n');
    EXPECT_EQ(Mistakes(longest), QStringList());
    EXPECT_EQ(Mistakes(longest + u'\n'), QStringList{reason});
}

TEST(TemplateParser, WhatAPageMayHoldIsBounded) {
    const QString parts = u"線 0,0 1,1\n"_s.repeated(1'000);
    EXPECT_EQ(Mistakes(u"用紙 A4\n明細 高さ=9\n"_s + parts), QStringList());
    EXPECT_EQ(Mistakes(u"用紙 A4\n明細 高さ=9\n"_s + parts + parts),
              QStringList{u"1003 行目: 部品が多すぎます。1000 個までにしてください。"_s});
    EXPECT_EQ(Mistakes(u"用紙 A4\n明細 高さ=0."_s + QString(400, u'0') + u'1'),
              QStringList{u"2 行目: 高さ「0."_s + QString(235, u'0') + u"…"_s + QString(42, u'0') +
                          u"1」は 0 より大きくしてください。"_s});
    EXPECT_EQ(Mistakes(u"用紙 A4\n明細 高さ=0."_s + QString(250, u'0') + u'1'),
              QStringList{u"2 行目: 一頁の明細は 2000 個までにしてください。"_s});
    EXPECT_EQ(Mistakes(u"用紙 A4\n升目 横=2000 縦=2000 横間隔=0.1 縦間隔=0.1\n明細 高さ=0.1"_s),
              QStringList{u"3 行目: 一頁の明細は 2000 個までにしてください。"_s});
    EXPECT_EQ(Mistakes(u"用紙 100x100\n明細 高さ=0.9\n"_s + u"線 0,0 0.1,0.1\n"_s.repeated(1'000)),
              QStringList{u"2 行目: 一頁に描く部品は 100000 個までにしてください。"_s});
    EXPECT_EQ(Mistakes(u"用紙 A4\n明細 高さ=9\n数字枠 0,0 1x1 \"1\" 左端=0"_s + u",0"_s.repeated(100)),
              QStringList{u"3 行目: 左端は 100 個までにしてください。"_s});
}

TEST(TemplateParser, AllMistakesAreToldAtOnceInTheOrderOfTheLines) {
    EXPECT_EQ(Mistakes(u"用紙 A4\n明細 高さ=9\n文字 0,0 9x10 \"あ\"\n絵画\n線 1 2"_s),
              (QStringList{u"3 行目: 置き場所が幅 210、高さ 9 の外に出ています。"_s,
                           u"4 行目: 「絵画」という命令はありません。"_s,
                           u"5 行目: 位置「1」は「左,上」の形で書いてください。"_s}));
}

TEST(TemplateParser, RemarksBlanksAndQuotesAreReadAsWritten) {
    const ParsedTemplate parsed = ParseTemplate(
        u"# 見出し\r\n　用紙　はがき　# 後ろの説明\r\n明細 高さ=9\n  文字 1,2 3x4 \"a # \"\"[[x]\"\" [氏名]\" 色=#102030\r\n"_s);
    EXPECT_TRUE(parsed.errors.isEmpty());
    EXPECT_EQ(parsed.definition.page, QSizeF(100, 148));
    ASSERT_EQ(parsed.definition.detail.elements.size(), 1);
    const TemplateElement& text = parsed.definition.detail.elements.first();
    EXPECT_EQ(text.place, QRectF(1, 2, 3, 4));
    EXPECT_EQ(text.colour, QColor(0x10, 0x20, 0x30));
    ASSERT_EQ(text.text.size(), 2);
    EXPECT_EQ(text.text[0].text, u"a # \"[x]\" "_s);
    EXPECT_FALSE(text.text[0].isField);
    EXPECT_EQ(text.text[1].text, u"氏名"_s);
    EXPECT_TRUE(text.text[1].isField);
}

TEST(TemplateParser, FieldMayHaveTextThatDependsOnIt) {
    const TextPattern text =
        ParseTemplate(u"用紙 A4\n明細 高さ=9\n文字 0,0 9x9 \"甲[〒|郵便番号|　][|住所A|]\" 空なら=住所B"_s)
            .definition.detail.elements.first()
            .text;
    ASSERT_EQ(text.size(), 3);
    EXPECT_EQ(text[1].before, u"〒"_s);
    EXPECT_EQ(text[1].text, u"郵便番号"_s);
    EXPECT_EQ(text[1].after, u"　"_s);
    EXPECT_EQ(text[2].before + text[2].after, QString());
}

TEST(TemplateParser, FaceHoldsForTheTextsThatFollowIt) {
    const TemplateDefinition form =
        ParseTemplate(
            u"用紙 A4 横\n明細 高さ=9\n文字 0,0 9x9 \"a\"\n書体 ゴシック 12\n文字 0,0 9x9 \"b\"\n"_s
            u"文字 0,0 9x9 \"c\" 書体=Ｐ明朝 大きさ=6"_s)
            .definition;
    EXPECT_EQ(form.page, QSizeF(297, 210));
    const QList<TemplateElement>& texts = form.detail.elements;
    ASSERT_EQ(texts.size(), 3);
    EXPECT_EQ(texts[0].style.points, 9);
    EXPECT_EQ(texts[1].style.face, SuiteFace::Gothic);
    EXPECT_EQ(texts[1].style.points, 12);
    EXPECT_EQ(texts[2].style.face, SuiteFace::PMincho);
    EXPECT_EQ(texts[2].style.points, 6);
}

TEST(TemplateParser, FormsOfTheHouseHaveNoMistake) {
    ASSERT_EQ(StandardTemplateNames().size(), 4);
    for (const QString& name : StandardTemplateNames())
        EXPECT_EQ(Mistakes(StandardTemplate(name)), QStringList()) << name.toStdString();
}

TEST(TemplateCheck, ColumnsAreTakenWithTheirPrefixOrWithoutAndTheRestIsReported) {
    const TemplateDefinition form =
        ParseTemplate(
            u"用紙 A4\n升目 横=2 縦=1 横間隔=50 縦間隔=50 項目=A列,B列\n並び 行番号 無順\n明細 高さ=9\n"_s
            u"文字 0,0 9x9 \"[名称] [行番号] [頁] [無名]\" ただし=無条件"_s)
            .definition;
    QList<TemplateError> mistakes;
    EXPECT_EQ(NeededColumns(form, {u"行番号"_s, u"A列名称"_s, u"B列名称"_s, u"余り"_s}, mistakes),
              (QStringList{u"A列名称"_s, u"B列名称"_s, u"行番号"_s}));
    QStringList reported;
    for (const TemplateError& mistake : mistakes) reported.append(mistake.Text());
    EXPECT_EQ(reported, (QStringList{u"並びの列「無順」が表にありません。"_s, u"5 行目: 表に列「無名」がありません。"_s,
                                     u"5 行目: 表に列「無条件」がありません。"_s}));
}
