// Part of DatabaseSession.h: ParseConnectionString.

#include "database/DatabaseSession.h"

#include <array>

#include "text/mod項目編集.h"

namespace database {
namespace {

struct KnownField {
    QLatin1StringView name;
    QString ConnectionRequest::*target;
};

const std::array<KnownField, 5> kKnownFields = {{
    {QLatin1StringView("provider"), &ConnectionRequest::provider},
    {QLatin1StringView("user id"), &ConnectionRequest::userId},
    {QLatin1StringView("password"), &ConnectionRequest::password},
    {QLatin1StringView("data source"), &ConnectionRequest::dataSource},
    {QLatin1StringView("initial catalog"), &ConnectionRequest::initialCatalog},
}};

QString QuotedValue(QStringView text, qsizetype& at) {
    const QChar quote = text[at++];
    QString value;
    while (at < text.size()) {
        if (text[at] == quote) {
            ++at;
            if (at >= text.size() || text[at] != quote) break;
        }
        value.append(text[at++]);
    }
    while (at < text.size() && text[at] != u';') ++at;
    return value;
}

QString Value(QStringView text, qsizetype& at) {
    while (at < text.size() && text[at] == u' ') ++at;
    if (at < text.size() && (text[at] == u'"' || text[at] == u'\'')) return QuotedValue(text, at);
    const qsizetype begin = at;
    while (at < text.size() && text[at] != u';') ++at;
    qsizetype end = at;
    while (end > begin && text[end - 1] == u' ') --end;
    return text.sliced(begin, end - begin).toString();
}

}  // namespace

ConnectionRequest ParseConnectionString(const QString& text) {
    ConnectionRequest request;
    const QStringView all = text;
    for (qsizetype at = 0; at < all.size(); ++at) {
        const qsizetype begin = at;
        while (at < all.size() && all[at] != u'=' && all[at] != u';') ++at;
        if (at >= all.size() || all[at] == u';') continue;
        const QString name = TrimBlanks(all.sliced(begin, at - begin));
        ++at;
        const QString value = Value(all, at);
        for (const KnownField& field : kKnownFields)
            if (name.compare(field.name, Qt::CaseInsensitive) == 0)
                request.*field.target = value.isNull() ? QStringLiteral("") : value;
    }
    return request;
}

}  // namespace database
