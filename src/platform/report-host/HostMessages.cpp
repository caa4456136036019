#include "platform/report-host/HostMessages.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include "platform/report-host/HostSocket.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

const QString kVerb = u"verb"_s, kReport = u"report"_s, kView = u"view"_s, kNumber = u"number"_s, kText = u"text"_s;

struct VerbName {
    HostVerb verb;
    QString name;
};

const VerbName kVerbNames[] = {{HostVerb::Bind, u"Bind"_s},
                               {HostVerb::OpenReport, u"OpenReport"_s},
                               {HostVerb::Maximize, u"Maximize"_s},
                               {HostVerb::Quit, u"Quit"_s},
                               {HostVerb::Release, u"Release"_s}};

QByteArray Line(const QJsonObject& object) { return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n'; }

}  // namespace

QByteArray LineOf(const HostRequest& request) {
    for (const VerbName& known : kVerbNames)
        if (known.verb == request.verb)
            return Line({{kVerb, known.name}, {kReport, request.report}, {kView, static_cast<int>(request.view)}});
    return {};
}

QByteArray LineOf(const HostAnswer& answer) {
    return Line({{kNumber, static_cast<qint64>(answer.number)}, {kText, answer.description}});
}

std::optional<HostRequest> ParseRequest(const QByteArray& line) {
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    for (const VerbName& known : kVerbNames)
        if (object.value(kVerb).toString() == known.name)
            return HostRequest{known.verb, object.value(kReport).toString(),
                               static_cast<ReportView>(object.value(kView).toInt(-1))};
    return std::nullopt;
}

std::optional<HostAnswer> ParseAnswer(const QByteArray& line) {
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    if (!object.value(kNumber).isDouble()) return std::nullopt;
    return HostAnswer{static_cast<long>(object.value(kNumber).toInteger()), object.value(kText).toString()};
}

QString HostSocketPath(const QString& templateFile) {
    const QFileInfo file(templateFile);
    const QString path = file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
    const QByteArray name = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1).toHex().first(24);
    return QFile::decodeName(HostFolder()) + u"/host-"_s + QString::fromLatin1(name);
}

}  // namespace platform
