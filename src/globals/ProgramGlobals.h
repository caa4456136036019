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
#include "globals/StaffRowStore.h"
#include "platform/OutputFile.h"
#include "platform/ReportHostLink.h"

class Control;
class Form;
class SelectionSource;

/// The staff member who has started the program. Rights are inverted: a right with the numeric value 0 is granted.
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

/// The last run of the report host. All fields but HostApplication keep their values until the next run.
struct HostRun {
    QString HostFolder;  ///< folder of the host's program file, as registered
    quint32 HostProcessId = 0;
    quint32 HostProcessHandle = 0;                          ///< from OpenProcess; stays open after a preview
    quint32 HostExitCode = 0;                               ///< always 0; passed to TerminateProcess
    std::unique_ptr<platform::ReportHost> HostApplication;  ///< null except while the host is being controlled
};

/// The program-wide state, from the start to the end of the process. Pointers to forms and controls are null if the
/// form does not exist.
struct ProgramGlobals {
    InstallationLayout Layout;
    EnvironmentDefinition Environment;
    GeneralDatabaseDefinition GeneralDatabase;
    StaffIdentity Staff;
    CompanyRecord Company;
    OfficeRecord Office;        ///< the operating office
    OfficeRecord OutputOffice;  ///< another office: second sender on mail pieces
    PartnerLinkTable PartnerLinks;
    int OfficeCount = 0;                 ///< offices other than "000"
    int PinRequired = 0;                 ///< 1: rights are enforced; otherwise every operation is allowed
    bool OperatorAuthenticated = false;  ///< at the last check the right existed, or a PIN was accepted
    InquiryConditions Conditions;
    ConditionFlags Flags;
    StaffRowStore Rows;

    QString ProgramId;   ///< id of the program in all tables
    QString ReportName;  ///< the same text; work tables and reports have this name, some with a suffix
    QString MenuName;    ///< the suite menu under which rights and labels of this program are stored

    Form* MainForm = nullptr;        ///< owned by Main
    bool ScreenPainting = false;     ///< the screen is being painted: handlers ignore events
    bool LinkWaiting = false;        ///< waiting for another program: handlers ignore events
    bool StartCommandAbsent = true;  ///< false after a complete start command; never read

    int RowsPerPage = 0;      ///< 8, or 6 on a low screen
    int TopRow = 0;           ///< row of the store in the first visible position
    int LastRow = -1;         ///< highest used row of the store
    QString ScopeOfficeCode;  ///< office filter of the inquiry, "000" for all

    Control* FirstHeadItem = nullptr;   ///< the head item that gets the focus after a search or a clear
    Control* LastHeadItem = nullptr;    ///< the head item that lost the focus last
    Control* ActiveItem = nullptr;      ///< the input item last activated in a list window
    QString ListCondition;              ///< SQL condition passed to a list window
    Control* ListResultItem = nullptr;  ///< the item that a list window writes its result to
    Control* ListNextItem = nullptr;    ///< the item that gets the focus afterwards
    Form* NestedListOwner = nullptr;    ///< the list window that has opened a nested one
    int NestedListFlag = 0;             ///< 1 while NestedListOwner is set

    database::Connection ReportDatabase;                   ///< open while an output runs
    database::Recordset ReportRecordset;                   ///< the only recordset on it
    QString TextOutputFileName;                            ///< last chosen name, the next default
    std::unique_ptr<platform::OutputFile> TextOutputFile;  ///< open while the file is written
    QSize ScreenSize;                                      ///< primary screen, in device-independent pixels

    QString OsUserName, ComputerName, UserId;
    double ProcCounter = 0;  ///< number of the last history row of this run, a whole number

    QString GeneralFilePath;  ///< never read

    database::Connection ConfigConnection;  ///< configuration database
    bool ConfigConnectionOpen = false;
    database::Connection MainConnection;  ///< general database, read-only
    bool MainConnectionOpen = false;  ///< also true if nothing was opened since `db` of the definition row is unknown

    /// Updates the linked tables of report files; tests replace it by a fake.
    std::unique_ptr<database::TableEngine> LinkedTables = std::make_unique<database::SuiteTableEngine>();

    HostRun Host;
    QString DiscoveredHostFolder;  ///< from PrepareReportHost; never read: each run of the host reads the registry

    // Messages between programs (access/ProgramLinks.h).
    QString LinkSenderId, LinkStartInfo, LinkEndInfo;  ///< sender and key of the start message, text of the end message
    QString LinkStartedAt;                             ///< timestamp of the received start message

    QHash<QString, SelectionSource*> SelectionWindows;  ///< by window name, while loaded
};

/// The record of this process.
ProgramGlobals& Globals();
/// Replaces the record by a new one. For tests.
void ResetGlobals();
