#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QtTest/QTest>

#include <thread>

#include "platform/ReportHostLink.h"
#include "platform/RuntimeError.h"
#include "report-host/OutputPlace.h"
#include "report-host/PreparedReport.h"
#include "support/HostProgram.h"
#include "support/PrintService.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;
using platform::ReportHost;

namespace {

const QString kList = u"要員名簿照会"_s;

/// The real host on an installation's forms file, with one row in the list's work table.
class HostProgramTest : public ::testing::Test {
  protected:
    HostProgramTest() {
        installation.Report().Execute(
            u"INSERT INTO 要員名簿照会 (選択条件, コード, 氏名) VALUES ('', '00001', '山田　太郎')"_s);
        WriteOutputPlace(Forms(), {}, {OutputPlace::Kind::Folder, folder.path()});
    }

    QString Forms() const { return installation.ReportFolder() + u"/repfrmdb.accdb"_s; }
    static std::unique_ptr<ReportHost> Bind(const QString& forms) {
        return platform::LocalReportHostLink().Bind(forms);
    }
    std::unique_ptr<ReportHost> Bind() const { return Bind(Forms()); }
    template <typename Work>
    static QString Refusal(Work work) {
        try {
            work();
        } catch (const platform::RuntimeError& error) {
            return error.Description();
        }
        return u"nothing was refused"_s;
    }
    QStringList Printed() const { return QDir(folder.path()).entryList(QDir::Files); }

    SampleInstallation installation;
    QTemporaryDir folder;
};

}  // namespace

TEST_F(HostProgramTest, PrintIsAnsweredWhenThePagesHaveBeenHandedOver) {
    HostProgram host(Forms());
    host.WaitForDoor();
    Bind()->OpenReport(kList, platform::kPrintReport);
    EXPECT_EQ(Printed().size(), 1);
}

TEST_F(HostProgramTest, QuitEndsIt) {
    HostProgram host(Forms());
    host.WaitForDoor();
    Bind()->Quit();
    EXPECT_TRUE(host.Ends());
    EXPECT_EQ(host.ExitCode(), 0);
    EXPECT_EQ(Refusal([&] { Bind(); }), u"帳票ホストに接続できません。"_s);
}

TEST_F(HostProgramTest, FormThatIsMissingOrHasAMistakeIsToldInItsAnswer) {
    HostProgram host(Forms());
    host.WaitForDoor();
    const std::unique_ptr<ReportHost> bound = Bind();
    EXPECT_TRUE(Refusal([&] { bound->OpenReport(u"無い帳票"_s, platform::kPrintReport); }).contains(u"無い帳票"_s));
    EXPECT_EQ(Refusal([&] { bound->OpenReport(kList, 1); }), u"帳票の表示方法 1 は使えません。"_s);
    bound->OpenReport(kList, platform::kPrintReport);
    EXPECT_EQ(Printed().size(), 1);
}

TEST_F(HostProgramTest, FormsFileThatIsMissingOrBrokenIsTold) {
    const QString broken = folder.filePath(u"broken.accdb"_s);
    ASSERT_TRUE(QFile(broken).open(QIODevice::WriteOnly));
    for (const QString& forms : {u"/nowhere/repfrmdb.accdb"_s, broken}) {
        HostProgram host(forms);
        host.WaitForDoor();
        EXPECT_TRUE(Refusal([&] { Bind(forms)->OpenReport(kList, platform::kPrintReport); }).endsWith(u"。"_s));
    }
}

TEST_F(HostProgramTest, PrinterThatRefusesIsToldInItsAnswer) {
    PrintService prints;
    prints.AddPrinter(u"office"_s);
    prints.Reject(u"office"_s);
    WriteOutputPlace(Forms(), {}, {OutputPlace::Kind::Printer, u"office"_s});
    HostProgram host(Forms());
    host.WaitForDoor();
    EXPECT_EQ(Refusal([&] { Bind()->OpenReport(kList, platform::kPrintReport); }),
              u"プリンター「office」は印刷を受け付けていません。"_s);
}

TEST_F(HostProgramTest, WhatItPrintsArrivesAtThePrinter) {
    PrintService prints;
    prints.AddPrinter(u"office"_s);
    prints.MakeDefault(u"office"_s);
    WriteOutputPlace(Forms(), {}, {});
    HostProgram host(Forms());
    host.WaitForDoor();
    Bind()->OpenReport(kList, platform::kPrintReport);
    QProcess text;
    text.start(u"pdftotext"_s, {prints.ArrivedFile(u"office"_s), u"-"_s});
    text.waitForFinished();
    EXPECT_TRUE(QString::fromUtf8(text.readAllStandardOutput()).contains(u"山田"_s));
}

TEST_F(HostProgramTest, HostThatDiesWhilePrintingIsTold) {
    HostProgram host(Forms());
    host.WaitForDoor();
    const std::unique_ptr<ReportHost> bound = Bind();
    host.Freeze();  // it has the request and never comes to the answer
    std::thread death([&host] { host.KillNow(); });
    EXPECT_EQ(Refusal([&] { bound->OpenReport(kList, platform::kPrintReport); }),
              u"帳票ホストが途中で終了しました。"_s);
    death.join();
}

TEST_F(HostProgramTest, LeavesByItselfWhenItsCallerIsGoneAndNothingStands) {
    HostProgram host(Forms());
    host.WaitForDoor();
    EXPECT_TRUE(host.Ends());
}

TEST_F(HostProgramTest, PreviewStaysWhenItsCallerIsGone) {
    HostProgram host(Forms());
    host.WaitForDoor();
    {
        const std::unique_ptr<ReportHost> bound = Bind();
        bound->OpenReport(kList, platform::kPreviewReport);
        bound->Maximize();
    }
    Bind();  // another caller that comes and goes is served as well
    EXPECT_TRUE(host.Runs());
    Bind()->Quit();
    EXPECT_TRUE(host.Ends());
}
