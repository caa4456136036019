#pragma once

#include <gtest/gtest.h>

#include "data/Connections.h"
#include "globals/ProgramGlobals.h"
#include "support/FileBytes.h"
#include "support/OtherProgram.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

/// An installation before the program's start, with empty masters except the launching staff member 00001 and with
/// minimal definition rows.
class InInstallation : public ::testing::Test {
  protected:
    InInstallation() : installation({.staff = 1}) {
        using namespace Qt::StringLiterals;
        installation.General().Execute(
            u"DELETE FROM K年号区分; DELETE FROM M担当者;"
            u"INSERT INTO M担当者 (コード, 氏名) VALUES ('00001', '山田　太郎')"_s);
        installation.Configuration().Execute(
            u"DELETE FROM 動作環境定義;"
            u"INSERT INTO 動作環境定義 (動作環境定義ID, 運用事業所コード, インストール区分, CL更新実行区分, "
            u"起動担当者コード)"
            u" VALUES ('001', '000', '0', '0', '00001')"_s);
        services.system.applicationFolder = installation.ProgramFolder();
        Globals().ProgramId = Globals().ReportName = u"要員名簿照会"_s;
        Globals().MenuName = u"販路推進データ管理"_s;
    }

    QStringList History() const { return installation.HistoryTexts(); }

    TestServices services;
    SampleInstallation installation;
};

/// The same with both connections open, as after a start.
class WithConnections : public InInstallation {
  protected:
    WithConnections() {
        using namespace Qt::StringLiterals;
        ProgramGlobals& globals = Globals();
        globals.UserId = u"tester"_s;
        globals.Environment.OperatingOfficeCode = u"000"_s;
        globals.Staff.LaunchingStaffCode = u"00001"_s;
        globals.Layout.ConfigDbKind = FileKind::Accdb;
        globals.Layout.UserConfFolder = installation.Root() + u"/conf"_s;
        globals.GeneralDatabase.db = u"A"_s;
        globals.GeneralDatabase.プロバイダ名 = u"Microsoft.ACE.OLEDB.12.0"_s;
        globals.GeneralDatabase.データソース名 = installation.General().Path();
        globals.ConfigConnectionOpen = ReconnectConfigConnection();
        OpenGeneralConnection();
        globals.MainConnectionOpen = true;
    }
};

/// Number and description of a thrown error.
struct Failure {
    long number = 0;
    QString description;
};
template <typename Work>
Failure FailureOf(Work work) {
    try {
        work();
    } catch (const platform::RuntimeError& error) {
        return {error.Number(), error.Description()};
    }
    ADD_FAILURE() << "nothing failed";
    return {};
}
