#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

#include "database/DatabaseTypes.h"
#include "database/sqlite/SqliteHandle.h"

namespace report {

/// A table of another database file that templates read by name.
struct LinkedTable {
    QString name;     ///< name used by templates
    QString source;   ///< name in its own file
    QString connect;  ///< ";DATABASE=" and the absolute path of the file

    /// The path in `connect`; empty if there is none.
    QString DatabaseFile() const;
};

/// The template file (repfrmdb): templates in table 帳票 (名称, 定義), linked tables in リンクテーブル (名称,
/// 元テーブル, 接続, 属性). All members throw database::DatabaseError; if the file can't be opened, with a Japanese
/// description.
class FormsFile {
  public:
    explicit FormsFile(const QString& path, database::ConnectMode mode = database::ConnectMode::Read);

    /// Names of the templates, in the order of creation.
    QStringList Names() const;
    /// Text of a template; nullopt if it does not exist.
    std::optional<QString> Form(const QString& name) const;
    /// Inserts or replaces a template.
    void StoreForm(const QString& name, const QString& text);
    /// A linked table by name; nullopt if it does not exist.
    std::optional<LinkedTable> Link(const QString& name) const;

  private:
    database::SqliteDatabase database_;
};

}  // namespace report
