#include "setup/commands/HistorySource.h"

#include "setup/storage/ConfigurationFiles.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

HistoryRow RowOf(const database::Recordset& row, const QString& file) {
    const auto text = [&](QStringView column) { return row[column].TextOr(u""_s); };
    return {text(u"実行日付"),         text(u"プログラムID"),     text(u"proccounter"), text(u"摘要"),
            text(u"運用事業所コード"), text(u"起動担当者コード"), text(u"ユーザID"),    file};
}

}  // namespace

QList<HistoryRow> HistorySource::NewRows() {
    database::Connection connection = OpenForReading(file_);
    database::Recordset row;
    row.Open(
        u"SELECT rowid AS 行, 実行日付, プログラムID, proccounter, 摘要, 運用事業所コード, 起動担当者コード,"
        u" ユーザID FROM プログラム稼動履歴 WHERE rowid > %1 ORDER BY rowid"_s.arg(lastRow_),
        connection);
    QList<HistoryRow> rows;
    for (; !row.AtEOF(); row.MoveNext()) {
        rows.append(RowOf(row, file_));
        lastRow_ = row[u"行"].Text().toLongLong();
    }
    row.Close();
    return rows;
}

QList<HistorySource> HistorySources(const QString& installation, const QString& user) {
    QList<HistorySource> sources;
    for (const ConfigurationInUse& configuration : ConfigurationsInUse(installation, user))
        sources.append(HistorySource(configuration.file));
    return sources;
}

}  // namespace setup
