#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>

#include "data/Environment.h"
#include "globals/ProgramGlobals.h"
#include "platform/FileRights.h"
#include "platform/registry/FileRegistry.h"
#include "setup/RunTool.h"
#include "setup/storage/InstallationRights.h"
#include "support/FakeRegistry.h"
#include "support/FileBytes.h"
#include "support/SampleInstallation.h"
#include "support/SuiteUser.h"
#include "support/TestServices.h"
#include "support/WithoutFileRights.h"

using namespace Qt::StringLiterals;

/// An installation with private copies, a registered host, and the copies of one user.
class SuiteSetupCheck : public testing::Test {
  protected:
    SuiteSetupCheck() {
        for (const QString& program :
             {u"prgbin/要員名簿照会"_s, u"prgbin/要員台帳更新"_s, u"host/OFFICE16/MSACCESS.EXE"_s}) {
            const QString file = installation.Root() + u'/' + program;
            QDir().mkpath(QFileInfo(file).path());
            WriteBytes(file, "#!/bin/true\n");
            QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        }
        setup::CorrectRights(installation.Root());
        QFile::remove(platform::MachineRegistryFile());  // left by an earlier test; the fake registry replaces it
        kept = qgetenv("MEIBO_USER_REGISTRY");
        qputenv("MEIBO_USER_REGISTRY", registry.UserFile().toUtf8());
        registry.GiveHost(installation.Root() + u"/host/OFFICE16/"_s);
        InstallationLayout& layout = Globals().Layout;
        layout.CommonConfFolder = installation.ConfFolder();
        layout.CommonReportFolder = installation.ReportFolder();
        layout.UserConfFolder = installation.UserFolder(u"tester"_s) + u"/conf"_s;
        layout.UserReportFolder = Report();
        layout.ConfigDbKind = layout.ReportDbKind = FileKind::Accdb;
        PrepareUserConfig();
        setup::CorrectRights(installation.Root());
    }
    ~SuiteSetupCheck() override { qputenv("MEIBO_USER_REGISTRY", kept); }

    QString Report() const { return installation.UserFolder(u"tester"_s) + u"/report"_s; }
    ToolOutput Check(const QStringList& options = {}) const {
        return RunTool(QStringList{u"check"_s, installation.Root()} + options);
    }
    /// Expects that the tool reports this fault alone and fails.
    void ExpectFault(const QString& fault) const {
        const ToolOutput output = Check({u"--user"_s, u"tester"_s});
        EXPECT_EQ(output.status, 1);
        EXPECT_TRUE(output.out.contains(u"・"_s + fault)) << output.out.toStdString();
        EXPECT_EQ(output.err, u"suite-setup: 問題が 1 件あります。\n"_s);
    }

    /// Expected message for entries with wrong rights: path, and rights with %1 for the group's name.
    static QString RightsFault(const SharedSuite& suite, const QList<std::pair<QString, QString>>& entries) {
        QString text = u"・権限が違います。\n"_s;
        for (const auto& [path, rights] : entries)
            text += u"  "_s + path + u": "_s + rights.arg(platform::GroupName(platform::RightsOf(path)->group)) + u'\n';
        return text +
               u"  影響: ほかの利用者が使えないか、関係のない人が読み書きできます。\n"
               u"  対処: 次を所有者か root が実行してください。\n"
               u"    suite-setup upgrade '%1'\n"_s.arg(suite.Root());
    }
    /// A finding whose remedy is to add the user to the group.
    static QString GroupFault(const SharedSuite& suite, const QString& what, const QString& effect) {
        return u"・%1\n  影響: %2\n"
               u"  対処: 利用者をインストールのグループに加え、次を所有者か root が実行してください。\n"
               u"    suite-setup upgrade '%3'\n"_s.arg(what, effect, suite.Root());
    }

    TestServices services;
    SampleInstallation installation{{.staff = 1, .installKind = 1}};
    FakeRegistry& registry = UseStandInRegistry();
    QByteArray kept;
};
