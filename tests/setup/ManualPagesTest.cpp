#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>

#include "setup/RunTool.h"
#include "support/PrintText.h"

using namespace Qt::StringLiterals;

namespace {

QStringList Matches(const QString& text, const QString& pattern) {
    QStringList found;
    auto matches = QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (matches.hasNext()) found << matches.next().captured(1);
    found.removeDuplicates();
    found.sort();
    return found;
}

QStringList Options(const QString& text) { return Matches(text, u"(--[a-z][a-z-]*)"_s); }

/// A manual page of the tool with roff escapes removed.
QString Page(const QString& language) {
    QFile file(QStringLiteral(SUITE_SOURCES "/packaging/man/%1/suite-setup.1").arg(language));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll()).replace(u"\\-"_s, u"-"_s);
}

}  // namespace

TEST(ManualPages, TellOfEveryVerbAndOptionThatTheHelpTellsOfAndOfNoOther) {
    const QString help = RunTool({u"--help"_s}).out;
    const QStringList verbs = Matches(help, u"^  suite-setup ((?:registry |forms )?[a-z][a-z-]*)"_s);
    ASSERT_GT(verbs.size(), 10);
    for (const QString& language : {u"en"_s, u"ja"_s}) {
        const QString page = Page(language);
        EXPECT_EQ(Matches(page, u"^\\.TP\\n\\\\fB([a-z][a-z -]*)\\\\fR"_s), verbs) << language.toStdString();
        EXPECT_EQ(Options(page), Options(help)) << language.toStdString();
    }
}
