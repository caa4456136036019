#pragma once

#include <QHash>
#include <QSize>
#include <QString>
#include <array>
#include <memory>

#include "database/Database.h"
#include "database/LinkedTables.h"
#include "globals/CompanyRecord.h"
#include "globals/EnvironmentDefinition.h"
#include "globals/InquiryRecords.h"
#include "platform/OutputFile.h"
#include "platform/ReportHostLink.h"

class Control;
class Form;
class SelectionSource;

/// The staff member who has started the program. Rights are inverted: the numeric value 0 allows.
struct StaffIdentity {
    QString LaunchingStaffCode;  ///< empty if unknown
    QString StaffName;
    QString OfficeCode, DepartmentCode, SectionCode, PositionCode;
    int StaffClass = 0;
    QString LoginId;
    int AccessLevel = 0;
    std::array<QString, 10> ClassRights;  ///< 処理分類0操作許可 to 処理分類9操作許可
    std::array<QString, 8> OperationRights;  ///< 操作許可, 入力, 修正, 削除, 印刷, プレビュ, テキスト出力, イメージ出力
};

/// One run of the report host. All fields but HostApplication keep their values until the next run.
struct HostRun {
    QString HostFolder;  ///< registered folder, up to the NUL terminator
    quint32 HostProcessId = 0;
    quint32 HostProcessHandle = 0;  ///< from OpenProcess; stays open after a preview
    quint32 HostExitCode = 0;
    std::unique_ptr<platform::ReportHost> HostApplication;  ///< null except while the host is being controlled
};

/// The program-wide state, from Main to the end of the process.
struct ProgramGlobals {
    InstallationLayout Layout;
    EnvironmentDefinition Environment;
    GeneralDatabaseDefinition GeneralDatabase;
    StaffIdentity Staff;
    CompanyRecord Company;
    OfficeRecord Office;        ///< the operating office
    OfficeRecord OutputOffice;  ///< another office, for mail pieces
    PartnerLinkTable PartnerLinks;
    int OfficeCount = 0;                 ///< offices other than "000"
    int PinRequired = 0;                 ///< 1: rights are enforced, possibly by a PIN dialog
    bool OperatorAuthenticated = false;  ///< the last permission was granted to an identified person
    InquiryConditions Conditions;
    ConditionFlags Flags;
    StaffRowStore Rows;

    QString ProgramId;   ///< id of the program in all tables
    QString ReportName;  ///< the same text; prefix of work tables and report templates
    QString MenuName;    ///< the suite menu under which rights and labels of this program are stored

    Form* MainForm = nullptr;     ///< owned by Main
    bool ScreenPainting = false;  ///< the screen is being painted: handlers ignore events
    bool LinkWaiting = false;     ///< waiting for another program: handlers ignore events
    bool StartCommandAbsent = true;

    int RowsPerPage = 0;      ///< 8, or 6 on a low screen
    int TopRow = 0;           ///< row of the store in the first visible position
    int LastRow = -1;         ///< highest used row of the store
    QString ScopeOfficeCode;  ///< office filter of the inquiry, "000" for all

    Control* FirstHeadItem = nullptr;
    Control* LastHeadItem = nullptr;  ///< the head item that lost the focus last
    Control* ActiveItem = nullptr;    ///< the input item last activated in a list window
    QString ListCondition;            ///< SQL condition passed to a list window
    Control* ListResultItem = nullptr;
    Control* ListNextItem = nullptr;
    Form* NestedListOwner = nullptr;  ///< the list window that has opened a nested one
    int NestedListFlag = 0;           ///< 1 while NestedListOwner is set

    database::Connection ReportDatabase;                   ///< open while an output runs
    database::Recordset ReportRecordset;                   ///< the only recordset on it
    QString TextOutputFileName;                            ///< last chosen name, the next default
    std::unique_ptr<platform::OutputFile> TextOutputFile;  ///< open while the file is written
    QSize ScreenSize;                                      ///< pixels of the primary screen

    QString OsUserName, ComputerName, UserId;
    double ProcCounter = 0;  ///< number of the last history row of this run

    QString GeneralFilePath;  ///< not used

    database::Connection ConfigConnection;
    bool ConfigConnectionOpen = false;
    database::Connection MainConnection;
    bool MainConnectionOpen = false;  ///< also true if the definition row has an unknown dialect

    /// Updates the linked tables of report files; tests replace it by a fake.
    std::unique_ptr<database::TableEngine> LinkedTables = std::make_unique<database::SuiteTableEngine>();

    HostRun Host;
    QString DiscoveredHostFolder;  ///< found when the host was registered as trusted; not a cache for runs of the host

    QString LinkSenderId, LinkStartInfo, LinkEndInfo;
    QString LinkStartedAt;  ///< timestamp of the received start message

    QHash<QString, SelectionSource*> SelectionWindows;  ///< by window name, while loaded
};

ProgramGlobals& Globals();
/// Replaces the record by a new one. For tests.
void ResetGlobals();
