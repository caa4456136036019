#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

#include "database/DatabaseTypes.h"
#include "database/sqlite/SqliteHandle.h"
#include "report-host/template/ReportErrors.h"
#include "report-host/template/TemplateDefinition.h"

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
class TemplateFile {
  public:
    explicit TemplateFile(const QString& path, database::ConnectMode mode = database::ConnectMode::Read);

    /// Names of the templates, in the order of creation.
    QStringList Names() const;
    /// Text of a template; nullopt if it does not exist.
    std::optional<QString> Template(const QString& name) const;
    /// Inserts or replaces templates, all or none; `texts` in the order of `names`.
    void StoreTemplates(const QStringList& names, const QStringList& texts);
    /// A linked table by name; nullopt if it does not exist.
    std::optional<LinkedTable> Link(const QString& name) const;

  private:
    database::SqliteDatabase database_;
};

/// Name of the linked table that a template reads: the one it names, otherwise the report's name.
QString TableOfTemplate(const TemplateDefinition& definition, const QString& report);

/// Opens the database file of a linked table for reading. Throws database::DatabaseError.
database::SqliteDatabase OpenLinked(const LinkedTable& link);

/// Column names of a table or view, in order; empty if it does not exist. Throws database::DatabaseError.
QStringList ColumnsOf(sqlite3* database, const QString& table);

/// All errors that keep `text` from working as template of `report`: syntax errors, a missing or broken linked table,
/// unknown columns. Nothing is stored. Throws database::DatabaseError if the template file can't be read.
QList<TemplateError> TemplateErrorsOf(const TemplateFile& file, const QString& report, const QString& text);

/// Names of the built-in templates: staff list, envelope, postcard, label sheet. Each reads the work table of the same
/// name.
QStringList StandardTemplateNames();

/// Text of a built-in template (src/report-host/templates); empty for an unknown name.
QString StandardTemplate(const QString& name);

/// A template for a certain paper that can be used in place of a standard template.
struct ReadyTemplate {
    QString name;
    QString report;  ///< name of the template that it can replace

    /// Its text (src/report-host/templates/ready); that of the standard template if this is for the same paper.
    QString Text() const;
};

/// All ready-made templates: envelopes, postcards, label sheets.
QList<ReadyTemplate> ReadyTemplates();

}  // namespace report
