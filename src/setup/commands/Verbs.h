#pragma once

#include <QStringList>

#include "globals/EnvironmentDefinition.h"
#include "setup/commands/Arguments.h"

namespace setup {

/// Runs the tool; `arguments` without the program name. Returns the exit status: 0 success; 1 failed on the way; 2
/// usage error, nothing was changed. In both cases a message is on console.err.
int RunSetup(const QStringList& arguments, const Console& console);

// The procedures of the verbs. Each throws UsageError before anything is changed, and platform::RuntimeError later.

/// `init`: creates an installation with the sample and registers its report host, if this user may.
void CreateInstallation(const Arguments& arguments, const Console& console);

/// `upgrade`: upgrades an installation to this tool's version: programs, manual, and the tables, columns, indexes and
/// reports added since, in the common files and in all private copies; also a general database on a server, if the
/// connection string of its owner is given. Corrects group and mode of the entries. Changes no row and may be repeated.
/// Each file is either unchanged or fully upgraded.
void UpgradeInstallation(const Arguments& arguments, const Console& console);

/// `check`: prints what keeps an installation from working, what a clerk notices of it, and what to do: files, rights,
/// databases and their rows, report templates and host. Writes nothing. Checks the private copies of the given user, of
/// all users that have some (UsageError if they can't be read), or of those whose copies can be read. Throws UsageError
/// for an unknown user, and platform::RuntimeError if there is any finding.
void CheckInstallation(const Arguments& arguments, const Console& console);

/// `repair`: adds the rows, files and folders without which the programs do not work, and makes the changes that the
/// options ask for; on a server with the account of `--odbc`. With `--report`, only replaces a template by its standard
/// form. May be repeated. What can't be repaired is named at the end, after everything else.
void RepairInstallation(const Arguments& arguments, const Console& console);

/// `move`: updates the definition rows and linked tables of a copied or moved installation, common and private, to
/// point to its own files, and prints the changes. A general database outside the installation or on a server is left
/// unchanged and reported; a file outside also makes the command fail, since it may belong to the original. A file that
/// can't be changed makes it fail after all others have been processed.
void MoveInstallation(const Arguments& arguments, const Console& console);

/// `history`: prints the run history by runs, newest last; with `--follow` also the rows added later.
void ShowHistory(const Arguments& arguments, const Console& console);

/// `links`: prints the pending messages of the channel between the programs, oldest first, with their age by this
/// machine's clock. Users with private copies have a channel each. Writes nothing.
void ShowLinks(const Arguments& arguments, const Console& console);

/// `registry list`, `registry get` and `registry set`: show or write values of the registry; keys begin with HKLM (the
/// machine) or HKCU (this user).
void ListRegistry(const Arguments& arguments, const Console& console);
void GetRegistryValue(const Arguments& arguments, const Console& console);
void SetRegistryValue(const Arguments& arguments, const Console& console);

/// `import`: reads a Jet or ACE file in a resource-limited process and imports it into the general database of an
/// installation.
void ImportGeneral(const Arguments& arguments, const Console& console);

/// `server-init`: creates the tables of the general database on a server and, if an installation is named, copies its
/// general database there, printing a line for each table; the row counts are compared at the end. On failure the new
/// tables are dropped. With `--add-missing`, adds missing tables, columns, indexes and functions to existing tables
/// instead, and changes no row. Throws UsageError if one of the tables already exists or, with that option, none does.
void InitServer(const Arguments& arguments, const Console& console);

/// `use-server`: points the definition row of an installation at a server, after checking that every table, column and
/// function of the suite exists and that the collations compare exactly. Nothing is changed on failure.
void UseServer(const Arguments& arguments, const Console& console);

/// `seal-pins`: encrypts the PINs of the installation's general database, on a server with the account of the
/// definition row or of `--odbc`, and prints the counts. Throws UsageError if `--odbc` names another database.
void SealPins(const Arguments& arguments, const Console& console);

/// `printer`: sets the printer or output folder of the reports in the common template file and in every user's copy;
/// prints the setting if no such option is given.
void ChoosePrinter(const Arguments& arguments, const Console& console);

/// `forms export`: exports the templates of an installation, or the named one, to text files of the same names.
void ExportTemplates(const Arguments& arguments, const Console& console);
/// `forms import`: imports such files. Invalid templates are reported, and then none is imported.
void ImportTemplates(const Arguments& arguments, const Console& console);
/// `forms use`: replaces a template by the ready-made one for another paper, keeping the printer's offset; an edited
/// template is first written to its text file. Without a name prints the ready-made templates.
void UseReadyTemplate(const Arguments& arguments, const Console& console);
/// `forms check`: prints every error in the templates, or in the named one, with line and reason; also columns that the
/// linked work table lacks. Throws platform::RuntimeError if there is any.
void CheckTemplates(const Arguments& arguments, const Console& console);
/// `forms pdf`: renders the named template with the rows of its work table to a PDF. Needs a QGuiApplication for the
/// fonts.
void RenderReport(const Arguments& arguments, const Console& console);

/// Internal verb that makes this program the reader process of a Jet or ACE file; see JetReader.h.
void ServeFile(const Arguments& arguments, const Console& console);
/// Internal verb that prints the manual page in the language "ja" or "en"; see VerbTable.h.
void PrintManualPage(const Arguments& arguments, const Console& console);

// Used by several verbs.

/// The definition for the value of `--odbc`. Throws UsageError if it is missing or can't be stored; see DefinitionOf.
GeneralDatabaseDefinition DefinitionFrom(const Arguments& arguments);

/// Adds the installation to the desktop menu and prints the path of the entry. Throws platform::RuntimeError.
void EnterInMenu(const QString& root, const Console& console);

}  // namespace setup
