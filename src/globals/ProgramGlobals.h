#pragma once

#include <QHash>
#include <QSize>
#include <QString>
#include <memory>

#include "globals/CompanyRecord.h"
#include "globals/StaffIdentity.h"
#include "globals/EnvironmentDefinition.h"
#include "globals/InquiryConditions.h"
#include "globals/StaffRowStore.h"
#include "globals/HostRun.h"
#include "database/Database.h"
#include "database/LinkedTables.h"
#include "platform/OutputFile.h"

class Control;
class Form;
class SelectionSource;

/// The one program-wide record, alive from Main to the end of the process.
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
    int PinRequired = 0;                 ///< 1: rights are enforced and a PIN may be asked for
    bool OperatorAuthenticated = false;  ///< the last permission was granted to a known person
    InquiryConditions Conditions;
    ConditionFlags Flags;
    StaffRowStore Rows;

    QString ProgramId;   ///< the id in every table that speaks of programs
    QString ReportName;  ///< the same text; names the work tables and report forms
    QString MenuName;    ///< the suite menu under which rights and labels of this program stand

    Form* MainForm = nullptr;     ///< owned by Main
    bool ScreenPainting = false;  ///< the screen is being written from state: events answer nothing
    bool LinkWaiting = false;     ///< a sibling program is awaited: events answer nothing
    bool StartCommandAbsent = true;

    int RowsPerPage = 0;      ///< 8, or 6 on a low screen
    int TopRow = 0;           ///< row of the store in the first visible position
    int LastRow = -1;         ///< highest used row of the store
    QString ScopeOfficeCode;  ///< office that limits the inquiry, "000" for all

    Control* FirstHeadItem = nullptr;
    Control* LastHeadItem = nullptr;  ///< the head item that lost the focus last
    Control* ActiveItem = nullptr;    ///< the input item that reported itself last
    QString ListCondition;            ///< what a head item hands to a lookup window
    Control* ListResultItem = nullptr;
    Control* ListNextItem = nullptr;
    Form* NestedListOwner = nullptr;  ///< the list window from which another one has been opened
    int NestedListFlag = 0;           ///< 1 while NestedListOwner is set

    database::Connection ReportDatabase;                   ///< open while an output runs
    database::Recordset ReportRecordset;                   ///< the one recordset in use on it
    QString TextOutputFileName;                            ///< the name chosen last, proposed the next time
    std::unique_ptr<platform::OutputFile> TextOutputFile;  ///< open while the file is written
    QSize ScreenSize;                                      ///< pixels of the primary screen

    QString OsUserName, ComputerName, UserId;
    double ProcCounter = 0;  ///< number of the last history row of this run

    QString GeneralFilePath;  ///< kept only

    database::Connection ConfigConnection;
    bool ConfigConnectionOpen = false;
    database::Connection MainConnection;
    bool MainConnectionOpen = false;  ///< also True where the definition row names no known dialect

    /// Re-points the linked tables of report files; replaced by tests.
    std::unique_ptr<database::TableEngine> LinkedTables = std::make_unique<database::SuiteTableEngine>();

    HostRun Host;
    QString DiscoveredHostFolder;  ///< found while the host was trusted; a run of the host reads the registry anew

    QString LinkSenderId, LinkStartInfo, LinkEndInfo;

    QHash<QString, SelectionSource*> SelectionWindows;  ///< by window name, while loaded
};

ProgramGlobals& Globals();
/// Puts a fresh record in place of the present one. For tests.
void ResetGlobals();
