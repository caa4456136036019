#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QtTest/QTest>

#include "platform/ReportHostLink.h"
#include "platform/RuntimeError.h"
#include "support/RealProgram.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kTimeout = 30000;  // milliseconds

QString Program(const QString& name) { return QStringLiteral(SUITE_PROGRAMS "/") + name; }

/// Environment variables that replace those of the test; an empty value removes one.
using Variables = QList<QPair<QString, QString>>;

class ToolkitStart : public testing::Test {
  protected:
    ~ToolkitStart() override {
        process.kill();
        process.waitForFinished();
    }

    QString Installed(const QString& name) const {
        const QString path = installation.ProgramFolder() + u'/' + name;
        EXPECT_TRUE(QFile::exists(path) || QFile::link(Program(name), path));
        return path;
    }
    void Start(const QString& program, const QStringList& arguments, const Variables& variables) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const auto& [name, value] : variables) {
            environment.remove(name);
            if (!value.isEmpty()) environment.insert(name, value);
        }
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
    }
    void ExpectNoDisplay(const QString& program, const Variables& variables) {
        Start(Installed(program), {}, variables);
        ASSERT_TRUE(process.waitForFinished(kTimeout));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 1);
        EXPECT_EQ(QString::fromUtf8(process.readAllStandardError()),
                  program + u": 画面 (ディスプレイ) に接続できないため、起動できません。\n"_s);
        EXPECT_EQ(QString::fromUtf8(process.readAllStandardOutput()), QString());
        EXPECT_EQ(installation.HistoryTexts(), QStringList());
    }
    bool BindHost() const {
        try {
            platform::LocalReportHostLink().Bind(installation.Forms().Path())->Quit();
            return true;
        } catch (const platform::RuntimeError&) {
            return false;
        }
    }

    SampleInstallation installation{{.staff = 1}};
    QProcess process;
};

const Variables kOffscreen = {{u"QT_QPA_PLATFORM"_s, u"offscreen"_s}};
const QStringList kToolkitArguments = {u"-platform"_s, u"nosuch"_s};

}  // namespace

TEST_F(ToolkitStart, TheInquiryTakesArgumentsOfTheToolkitAsItsStartCommand) {
    const ProgramRun run = RunProgram(installation, kToolkitArguments);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, u"rows=0\n"_s);
    EXPECT_EQ(installation.HistoryTexts().value(0), u"開始 -platform nosuch"_s);
}

TEST_F(ToolkitStart, TheRegistrationTakesArgumentsOfTheToolkitAsItsStartCommand) {
    Start(Installed(u"要員台帳更新"_s), kToolkitArguments, kOffscreen);
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return installation.HistoryTexts().contains(u"開始 -platform nosuch"_s); }, kTimeout));
    process.terminate();
    ASSERT_TRUE(process.waitForFinished(kTimeout));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
}

TEST_F(ToolkitStart, TheReportHostPassesOverArgumentsOfTheToolkit) {
    Start(Program(u"report-host"_s), QStringList{installation.Forms().Path()} + kToolkitArguments, kOffscreen);
    EXPECT_TRUE(QTest::qWaitFor([this] { return BindHost(); }, kTimeout));
    ASSERT_TRUE(process.waitForFinished(kTimeout));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
}

TEST_F(ToolkitStart, TheToolRefusesArgumentsOfTheToolkit) {
    Start(Program(u"suite-setup"_s),
          QStringList{u"forms"_s, u"pdf"_s, installation.Root(), u"要員名簿照会"_s} + kToolkitArguments, {});
    ASSERT_TRUE(process.waitForFinished(kTimeout));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 2);
}

TEST_F(ToolkitStart, WithoutADisplayTheInquirySaysSoInOneSentence) {
    ExpectNoDisplay(u"要員名簿照会"_s, {{u"DISPLAY"_s, {}}, {u"WAYLAND_DISPLAY"_s, {}}, {u"QT_QPA_PLATFORM"_s, {}}});
}

TEST_F(ToolkitStart, WithADisplayThatDoesNotAnswerTheInquirySaysSoInOneSentence) {
    ExpectNoDisplay(u"要員名簿照会"_s, {{u"DISPLAY"_s, u":65001"_s}, {u"QT_QPA_PLATFORM"_s, u"xcb"_s}});
}

TEST_F(ToolkitStart, WithoutADisplayTheRegistrationSaysSoInOneSentence) {
    ExpectNoDisplay(u"要員台帳更新"_s, {{u"DISPLAY"_s, {}}, {u"WAYLAND_DISPLAY"_s, {}}, {u"QT_QPA_PLATFORM"_s, {}}});
}

TEST_F(ToolkitStart, WithADisplayThatDoesNotAnswerTheReportHostSaysSoInOneSentence) {
    ExpectNoDisplay(u"report-host"_s, {{u"DISPLAY"_s, u":65001"_s}, {u"QT_QPA_PLATFORM"_s, u"xcb"_s}});
}

TEST_F(ToolkitStart, WithoutItsPlatformPluginTheInquiryShowsTheMessagesOfTheToolkit) {
    Start(Installed(u"要員名簿照会"_s), {}, {{u"QT_QPA_PLATFORM"_s, u"nosuch"_s}});
    ASSERT_TRUE(process.waitForFinished(kTimeout));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1);
    const QStringList lines = QString::fromUtf8(process.readAllStandardError()).split(u'\n');
    EXPECT_EQ(lines.first(), u"要員名簿照会: 画面を表示する準備に失敗したため、起動できません。"_s);
    EXPECT_TRUE(lines.value(1).contains(u"\"nosuch\""_s)) << lines.value(1).toStdString();
    EXPECT_EQ(installation.HistoryTexts(), QStringList());
}

TEST_F(ToolkitStart, EveryProgramPrintsItsVersionWithoutDisplayAndHome) {
    for (const QString& name : {u"要員名簿照会"_s, u"要員台帳更新"_s, u"report-host"_s, u"suite-setup"_s}) {
        Start(Installed(name), {u"--version"_s},
              {{u"DISPLAY"_s, {}},
               {u"WAYLAND_DISPLAY"_s, {}},
               {u"QT_QPA_PLATFORM"_s, {}},
               {u"HOME"_s, {}},
               {u"LANG"_s, u"C"_s}});
        ASSERT_TRUE(process.waitForFinished(kTimeout)) << name.toStdString();
        EXPECT_EQ(process.exitCode(), 0);
        EXPECT_EQ(QString::fromUtf8(process.readAllStandardOutput()), name + u" 0.1.0\n"_s);
        EXPECT_EQ(process.readAllStandardError(), QByteArray());
    }
    EXPECT_EQ(installation.HistoryTexts(), QStringList());
}
