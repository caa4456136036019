// Part of GeneralDatabase.h: DefinitionOf.
#include <QHash>

#include "setup/UsageError.h"
#include "setup/schema/GeneralDatabase.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

struct Field {
    QString name, value;
};

QString BracedValue(QStringView text, qsizetype& at) {
    QString value;
    for (++at; at < text.size(); ++at) {
        if (text[at] == u'}') {
            if (at + 1 >= text.size() || text[at + 1] != u'}') break;
            ++at;
        }
        value.append(text[at]);
    }
    if (at >= text.size()) throw UsageError(u"接続文字列の「{」が閉じていません。"_s);
    const qsizetype end = text.indexOf(u';', at);
    at = end < 0 ? text.size() : end;
    return value;
}

QList<Field> FieldsOf(QStringView text) {
    QList<Field> fields;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const qsizetype end = text.indexOf(u';', at), equals = text.indexOf(u'=', at);
        const QStringView whole = text.sliced(at, (end < 0 ? text.size() : end) - at);
        if (TrimBlanks(whole).isEmpty()) {
            at += whole.size();
            continue;
        }
        if (equals < 0 || (end >= 0 && equals > end))
            throw UsageError(u"接続文字列の「%1」に「=」がありません。"_s.arg(whole));
        const QString name = TrimBlanks(text.sliced(at, equals - at)).toLower();
        at = equals + 1;
        while (at < text.size() && text[at] == u' ') ++at;
        if (at < text.size() && text[at] == u'{') {
            fields.append({name, BracedValue(text, at)});
            continue;
        }
        const qsizetype stop = end < 0 ? text.size() : end;
        fields.append({name, TrimBlanks(text.sliced(at, qMax<qsizetype>(0, stop - at)))});
        at = stop;
    }
    return fields;
}

// Field names of the drivers, mapped to a common one.
const QHash<QString, QString> kNames = {
    {u"driver"_s, u"driver"_s},     {u"dsn"_s, u"dsn"_s},       {u"server"_s, u"server"_s},
    {u"servername"_s, u"server"_s}, {u"host"_s, u"server"_s},   {u"port"_s, u"port"_s},
    {u"database"_s, u"database"_s}, {u"db"_s, u"database"_s},   {u"uid"_s, u"user"_s},
    {u"user"_s, u"user"_s},         {u"username"_s, u"user"_s}, {u"pwd"_s, u"password"_s},
    {u"password"_s, u"password"_s},
};

QHash<QString, QString> KnownFields(const QString& text) {
    QHash<QString, QString> known;
    for (const Field& field : FieldsOf(text)) {
        if (!kNames.contains(field.name))
            throw UsageError(
                u"接続文字列の「%1」は定義に入れられません。データソースに設定し、DSN= で指定してください。"_s.arg(
                    field.name));
        // The programs insert the value unquoted between two ";" of their connection string.
        if (field.value.contains(u';') || field.value.startsWith(u'\'') || field.value.startsWith(u'"'))
            throw UsageError(
                u"接続文字列の「%1」の値に「;」を含めたり、引用符で始めたりはできません。"_s.arg(field.name));
        known.insert(kNames.value(field.name), field.value);
    }
    return known;
}

}  // namespace

GeneralDatabaseDefinition DefinitionOf(const QString& odbcString) {
    const QHash<QString, QString> fields = KnownFields(odbcString);
    const bool byName = fields.contains(u"dsn"_s);
    if (byName == fields.contains(u"driver"_s))
        throw UsageError(u"接続文字列には Driver と DSN のどちらか一方を指定してください。"_s);
    if (byName && (fields.contains(u"server"_s) || fields.contains(u"port"_s) || fields.contains(u"database"_s)))
        throw UsageError(u"DSN= と一緒に指定できるのは UID と PWD だけです。"_s);
    if (!byName && (fields.value(u"server"_s).isEmpty() || fields.value(u"database"_s).isEmpty()))
        throw UsageError(u"接続文字列に Server と Database を指定してください。"_s);
    GeneralDatabaseDefinition definition;
    definition.db = byName ? u"O"_s : u"S"_s;
    definition.dbmw = u"ODBC"_s;
    definition.プロバイダ名 = byName ? u"MSDASQL"_s : fields.value(u"driver"_s);
    definition.データソース名 = fields.value(u"dsn"_s);
    definition.サーバー名 = fields.value(u"server"_s);
    if (!fields.value(u"port"_s).isEmpty()) definition.サーバー名 += u':' + fields.value(u"port"_s);
    definition.データベース名 = fields.value(u"database"_s);
    definition.ユーザーID = fields.value(u"user"_s);
    definition.パスワード = fields.value(u"password"_s);
    return definition;
}

}  // namespace setup
