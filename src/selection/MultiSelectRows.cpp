#include "selection/MultiSelectRows.h"

#include <optional>

#include "data/Recordsets.h"
#include "selection/ListWindow.h"
#include "selection/MultiSelectDefinitions.h"
#include "selection/SelectionWindow.h"

using namespace Qt::StringLiterals;

namespace {

/// Nothing when the master has no such row, or could not be read.
std::optional<QString> NameInMaster(const PickDefinition& definition, const QString& code) {
    std::optional<QString> name;
    database::Recordset record;
    const QString sql = u"SELECT * FROM "_s + definition.table + u" WHERE コード = '"_s + code + u'\'';
    if (OpenRecordset(record, sql, false) && !record.AtEOF()) name = record[definition.nameField].TextOr(QString());
    CloseQuietly(record);
    return name;
}

}  // namespace

MultiSelectRows::MultiSelectRows(ListWindow& window, const PickDefinition& definition)
    : QObject(&window), window_(window), definition_(definition) {
    RegisterSelection(definition_.window, *this);
    window_.Unload = [this] { UnregisterSelection(definition_.window, *this); };
}

MultiSelectRows::~MultiSelectRows() { UnregisterSelection(definition_.window, *this); }

QStringList MultiSelectRows::Codes() const {
    const ListView& list = window_.List();
    QStringList codes;
    for (int row = 0; row < list.RowCount(); ++row) {
        if (list.Checked(row)) codes << list.Row(row).key.mid(1);
    }
    return codes;
}

QString MultiSelectRows::BuildSelectionCondition(const QString& table, const QString& column) const {
    QStringList terms;
    for (const QString& code : Codes()) terms << table + u'.' + column + u" = '"_s + code + u'\'';
    return terms.isEmpty() ? QString() : u'(' + terms.join(u" OR "_s) + u')';
}

QString MultiSelectRows::DescribeSelection() const {
    QString text;
    int count = 0;
    for (const QString& code : Codes()) {
        ++count;
        const auto name = NameInMaster(definition_, code);
        if (name) text += (count == 1 ? definition_.prefix : u","_s) + *name;
    }
    return text;
}
