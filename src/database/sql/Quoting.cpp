#include "database/sql/Quoting.h"

using namespace Qt::StringLiterals;

namespace database {
namespace {

QString Enclosed(QStringView text, QChar quote) {
    return quote + text.toString().replace(quote, QString(2, quote)) + quote;
}

}  // namespace

QString TextLiteral(QStringView text) { return Enclosed(text, u'\''); }

QString TextOrNullLiteral(const QString& text) { return text.isNull() ? u"NULL"_s : TextLiteral(text); }

QString QuotedName(QStringView name) { return Enclosed(name, u'"'); }

QString QuotedNames(const QStringList& names) {
    QStringList quoted;
    for (const QString& name : names) quoted.append(QuotedName(name));
    return quoted.join(u", "_s);
}

}  // namespace database
