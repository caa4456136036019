// Plays the cases of check-advice.txt: an installation is damaged, check names the damage and what to do, its advice is
// followed to the letter, and then neither check nor the program shows anything wrong.

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <vector>

#include "support/FileBytes.h"
#include "support/RealProgram.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kTimeout = 60000;  // milliseconds
/// Advice may lead to a further finding: a class table that was missing is empty first.
constexpr int kMostRounds = 3;

/// One case of the file. ROOT and WORK in the texts are the installation and the folder around it.
struct AdviceCase {
    QString name;
    QString damage{};        ///< shell commands
    QStringList findings{};  ///< what check prints, in each round
    QString shown{};         ///< what the damaged program prints
    QString byHand{};        ///< shell commands that do what a sentence of the advice says; empty: its commands are run
};

void PrintTo(const AdviceCase& one, std::ostream* out) { *out << one.name.toStdString(); }

/// Adds the lines up to the next section to `text`; returns the heading of that section.
QString TakeSection(QStringList& lines, QString& text) {
    while (!lines.isEmpty()) {
        const QString line = lines.takeFirst();
        if (line.startsWith(u"== "_s) || line.startsWith(u"-- "_s)) return line;
        text += line + u'\n';
    }
    return {};
}

std::vector<AdviceCase> ReadCases() {
    QFile file(QStringLiteral(SUITE_SOURCES "/tests/setup/check-advice.txt"));
    std::vector<AdviceCase> cases;
    if (!file.open(QIODevice::ReadOnly)) return cases;
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    lines.removeLast();  // after the last line feed
    QString comment, heading = TakeSection(lines, comment);
    while (!heading.isEmpty()) {
        AdviceCase one{.name = heading.mid(3)};
        heading = TakeSection(lines, one.damage);
        while (heading.startsWith(u"-- "_s)) {
            if (heading == u"-- check"_s) one.findings.append(QString());
            QString& text = heading == u"-- check"_s   ? one.findings.last()
                            : heading == u"-- shown"_s ? one.shown
                                                       : one.byHand;
            heading = TakeSection(lines, text);
        }
        cases.push_back(one);
    }
    return cases;
}

class CheckAdvice : public testing::TestWithParam<AdviceCase> {
  protected:
    CheckAdvice() : registry_(qgetenv("MEIBO_MACHINE_REGISTRY")) {
        qputenv("MEIBO_MACHINE_REGISTRY", (Work() + u"/machine"_s).toUtf8());
        QFile functions(QStringLiteral(SUITE_SOURCES "/tests/setup/check-advice.sh"));
        EXPECT_TRUE(functions.open(QIODevice::ReadOnly));
        functions_ = QString::fromUtf8(functions.readAll());
        Run(u"suite-setup init ROOT --staff 40 && cp -a ROOT ROOT.backup"_s);
        rows_ =
            SampleFile(Root() + u"/data/gnrdb.accdb"_s).Value(u"SELECT COUNT(*) FROM M担当者 WHERE 在籍区分 = '0'"_s);
    }
    ~CheckAdvice() override { qputenv("MEIBO_MACHINE_REGISTRY", registry_); }

    QString Work() const { return folder_.path(); }
    QString Root() const { return folder_.filePath(u"honten"_s); }
    QString Filled(QString text) const { return text.replace(u"ROOT"_s, Root()).replace(u"WORK"_s, Work()); }

    /// Runs shell commands with the built tool in the path; expects that all succeed.
    void Run(const QString& commands) const {
        QProcess shell;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"PATH"_s, QStringLiteral(SUITE_PROGRAMS) + u':' + environment.value(u"PATH"_s));
        environment.insert(u"ROOT"_s, Root());
        environment.insert(u"WORK"_s, Work());
        shell.setProcessEnvironment(environment);
        shell.setProcessChannelMode(QProcess::MergedChannels);
        shell.start(u"bash"_s, {u"-e"_s, u"-c"_s, functions_ + Filled(commands)});
        ASSERT_TRUE(shell.waitForFinished(kTimeout));
        ASSERT_EQ(shell.exitCode(), 0) << commands.toStdString() << shell.readAll().toStdString();
    }

    /// Runs check, which must not change or add any file.
    QString Check(int status) const {
        const QStringList before = Files();
        QProcess tool;
        tool.start(QStringLiteral(SUITE_PROGRAMS "/suite-setup"), {u"check"_s, Root()});
        EXPECT_TRUE(tool.waitForFinished(kTimeout));
        EXPECT_EQ(tool.exitCode(), status) << tool.readAllStandardError().toStdString();
        EXPECT_EQ(Files(), before);
        return QString::fromUtf8(tool.readAllStandardOutput());
    }

    /// Path and content of every file of the folder.
    QStringList Files() const {
        QStringList files;
        QDirIterator all(Work(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (all.hasNext()) {
            const QString path = all.next();
            const QByteArray hash = QCryptographicHash::hash(ReadBytes(path), QCryptographicHash::Md5);
            files.append(path + u' ' + QString::fromLatin1(hash.toHex()));
        }
        files.sort();
        return files;
    }

    /// The command lines of an output of check.
    static QString CommandsIn(const QString& output) {
        QString commands;
        for (const QString& line : output.split(u'\n'))
            if (line.startsWith(u"    "_s)) commands += line.mid(4) + u'\n';
        return commands;
    }

    void ExpectProgram(const QString& shown) const {
        EXPECT_EQ(RunInstalledProgram(Root()).output, Filled(shown).replace(u"ALL"_s, rows_));
    }

  private:
    QTemporaryDir folder_{u"/tmp/meibo-advice-XXXXXX"_s};
    QByteArray registry_;
    QString functions_, rows_;
};

}  // namespace

TEST_P(CheckAdvice, MakesCheckAndProgramWholeAgain) {
    const AdviceCase& one = GetParam();
    Run(one.damage);
    ASSERT_FALSE(HasFatalFailure());
    ASSERT_LT(one.findings.size(), kMostRounds);
    for (const QString& finding : one.findings) {
        const QString output = Check(1);
        ASSERT_EQ(output, Filled(finding));
        if (&finding == &one.findings.first() && !one.shown.isEmpty()) ExpectProgram(one.shown);
        Run(one.byHand.isEmpty() ? CommandsIn(output) : one.byHand);
        ASSERT_FALSE(HasFatalFailure());
    }
    EXPECT_EQ(Check(0), u"問題はありません。\n"_s);
    ExpectProgram(u"rows=ALL\n"_s);
}

INSTANTIATE_TEST_SUITE_P(Of, CheckAdvice, testing::ValuesIn(ReadCases()),
                         [](const auto& one) { return one.param.name.toStdString(); });

TEST(CheckAdviceCases, AreManyAndHaveADamageAndAFinding) {
    const std::vector<AdviceCase> cases = ReadCases();
    EXPECT_GE(cases.size(), 30U);
    for (const AdviceCase& one : cases)
        EXPECT_TRUE(!one.damage.isEmpty() && !one.findings.isEmpty()) << one.name.toStdString();
}
