#pragma once

// Read the definition rows of the connected configuration database. Without a row the fields keep their values. A
// failed read throws database::DatabaseError; a Null in `db` or `dbmw` throws platform::RuntimeError.

/// The row 'GNR' of データベース定義 into GeneralDatabase.
void ReadGeneralDatabaseDefinition();
/// Office, install kind and client update kind of the row '001' of 動作環境定義.
void ReadInstallation();
/// All columns of the row '001' of 動作環境定義 into Environment.
void ReadEnvironmentDefinition();
