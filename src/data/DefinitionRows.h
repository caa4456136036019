#pragma once

// Readers of the definition rows in the configuration database that is connected. Without a row the fields keep the
// values they have. A failed read throws database::DatabaseError, and so does a Null in `db` or `dbmw`
// (platform::RuntimeError).

/// The row 'GNR' of データベース定義 into GeneralDatabase.
void ReadGeneralDatabaseDefinition();
/// Office, install kind and client update kind of the row '001' of 動作環境定義.
void ReadInstallation();
/// The whole row '001' of 動作環境定義 into Environment.
void ReadEnvironmentDefinition();
