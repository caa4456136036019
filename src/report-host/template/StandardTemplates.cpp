#include "report-host/template/StandardTemplates.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace report {

QStringList StandardFormNames() {
    return {u"要員名簿照会"_s, u"要員名簿照会封筒"_s, u"要員名簿照会はがき"_s, u"要員名簿照会宛名ラベル"_s};
}

QString StandardForm(const QString& name) {
    QFile file(u":/templates/%1.txt"_s.arg(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace report
