#include <gtest/gtest.h>

#include <QRegularExpression>

#include "setup/RunTool.h"
#include "setup/commands/VerbTable.h"
#include "support/PrintText.h"

using namespace Qt::StringLiterals;

namespace {

QString Page(const QString& language) { return RunTool({u"manual-page"_s, language}).out; }

/// The page without the marks of possible line breaks.
QString PageText(const QString& language) { return Page(language).remove(u"\\:"_s).remove(u"\\%"_s); }

/// The entry of a verb, up to the next one or the next section. Empty if the page has none.
QString Entry(const QString& language, const QString& verb) {
    const QString page = PageText(language);
    const qsizetype begin = page.indexOf(u".TP\n\\fB%1\\fR"_s.arg(verb));
    if (begin < 0) return {};
    const qsizetype end = page.indexOf(QRegularExpression(u"\n\\.(TP\n\\\\fB[a-z]|SH )"_s), begin);
    EXPECT_GE(end, 0) << verb.toStdString();
    return page.sliced(begin, qMax<qsizetype>(end - begin + 1, 0));
}

}  // namespace

TEST(ManualPages, EveryVerbHasAnEntryWithItsOptionsInBothLanguages) {
    for (const setup::Verb& verb : setup::AllVerbs()) {
        if (verb.IsInternal()) continue;
        for (const QString& language : {u"en"_s, u"ja"_s}) {
            const QString entry = Entry(language, QString(verb.name).replace(u'-', u"\\-"_s));
            EXPECT_FALSE(entry.isEmpty()) << verb.name.toStdString();
            for (const setup::OptionDefinition& option : verb.options)
                EXPECT_EQ(entry.count(u"\\fB%1\\fR"_s.arg(option.name.toString().replace(u'-', u"\\-"_s))), 2)
                    << verb.name.toStdString() << option.name.toUtf8().toStdString();
        }
    }
}

TEST(ManualPages, EntryHasSynopsisDescriptionAndOptions) {
    EXPECT_EQ(
        Entry(u"ja"_s, u"server\\-init"_s),
        u".TP\n"
        u"\\fBserver\\-init\\fR \\fB\\-\\-odbc\\fR \\fI接続文字列\\fR [\\fB\\-\\-from\\fR \\fIフォルダ\\fR]"
        u" [\\fB\\-\\-add\\-missing\\fR]\n"
        u"PostgreSQL または MariaDB "
        u"のサーバーに一般データベースの表を作り、インストールから複写します。失敗したときは、"
        u"作った表を消します。\n"
        u".RS\n"
        u".TP\n"
        u"\\fB\\-\\-odbc\\fR \\fI接続文字列\\fR\n"
        u"表を作る利用者とサーバー\n"
        u".br\n"
        u"Driver=…;Server=…;Port=…;Database=…;UID=…;PWD=…\n"
        u".br\n"
        u"または DSN=…;UID=…;PWD=…\n"
        u".TP\n"
        u"\\fB\\-\\-from\\fR \\fIフォルダ\\fR\n"
        u"このインストールの一般データベースの行を複写する\n"
        u".TP\n"
        u"\\fB\\-\\-add\\-missing\\fR\n"
        u"既にある表に、足りない表、列、索引、関数だけを加える（データはそのまま）。\\-\\-from とは一緒に指定できない\n"
        u".RE\n"_s);
    EXPECT_EQ(Entry(u"en"_s, u"registry set"_s),
              u".TP\n"
              u"\\fBregistry set\\fR \\fIKEY\\fR \\fINAME\\fR \\fIVALUE\\fR [\\fB\\-\\-number\\fR]\n"
              u"Writes one value to the registry. Creates the key if there is none, and replaces an existing value.\n"
              u".RS\n"
              u".TP\n"
              u"\\fB\\-\\-number\\fR\n"
              u"write the value as a number, 0 to 4294967295\n"
              u".RE\n"_s);
}

TEST(ManualPages, LineEndsAreAllowedBetweenJapaneseCharactersButNotBeforeAPunctuationMark) {
    EXPECT_TRUE(Page(u"ja"_s).contains(u"イ\\:ン\\:ス\\:トー\\:ル\\:を\\:作\\:り\\:ま\\:す。\\:フォ\\:ル\\:ダ"_s));
    EXPECT_TRUE(Page(u"en"_s).contains(u"Driver=…;\\:Server=…;\\:Port=…"_s));
}

TEST(ManualPages, OnlyMacrosBeginWithAControlCharacter) {
    const QRegularExpression macro(u"^\\.(TH|SH|TP|RS|RE|br|ad l|nh|B|I|RI|BR|\\\\\")( |$)"_s);
    for (const QString& language : {u"en"_s, u"ja"_s})
        for (const QString& line : Page(language).split(u'\n')) {
            if (!line.startsWith(u'.') && !line.startsWith(u'\'')) continue;
            EXPECT_TRUE(macro.match(line).hasMatch()) << line.toStdString();
        }
}

TEST(ManualPages, ThereAreTwoLanguages) {
    const ToolOutput output = RunTool({u"manual-page"_s, u"fr"_s});
    EXPECT_EQ(output.status, 2);
    EXPECT_EQ(output.err.section(u'\n', 0, 0), u"suite-setup: 言語 fr の説明書はありません。"_s);
    EXPECT_EQ(output.out, QString());
}
