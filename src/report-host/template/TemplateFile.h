#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

#include "database/DatabaseTypes.h"
#include "database/sqlite/SqliteHandle.h"

namespace report {

/// A table of another database file that the forms read as if it lay in theirs.
struct LinkedTable {
    QString name;     ///< as the forms call it
    QString source;   ///< as it is called in its own file
    QString connect;  ///< ";DATABASE=" and the absolute path of that file

    /// The path in `connect`; empty without one.
    QString DatabaseFile() const;
};

/// The file with the report forms, table 帳票 (名称, 定義), and their linked tables, table リンクテーブル (名称,
/// 元テーブル, 接続, 属性). All members throw database::DatabaseError, with a Japanese description where the file can't
/// be opened.
class FormsFile {
  public:
    explicit FormsFile(const QString& path, database::ConnectMode mode = database::ConnectMode::Read);

    /// Names of the forms, in the order in which they were first stored.
    QStringList Names() const;
    std::optional<QString> Form(const QString& name) const;
    /// Replaces the form of that name, or adds it.
    void StoreForm(const QString& name, const QString& text);
    std::optional<LinkedTable> Link(const QString& name) const;

  private:
    database::SqliteDatabase database_;
};

}  // namespace report
