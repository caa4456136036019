// Part of JetReader.h: the reader process.
#include <QFile>
#include <QStringList>

#include "platform/RuntimeError.h"
#include "setup/storage/JetFile.h"
#include "setup/storage/JetReader.h"
#include "setup/storage/TableStream.h"

using namespace Qt::StringLiterals;

namespace setup {
namespace {

QByteArray ReadFully(QIODevice& in, qsizetype count) {
    QByteArray bytes;
    while (bytes.size() < count) {
        const QByteArray more = in.read(count - bytes.size());
        if (more.isEmpty()) break;
        bytes.append(more);
    }
    return bytes;
}

void SendRows(const JetFile& file, const QString& table, QIODevice& out) {
    qint64 rows = 0;
    file.ReadRows(table, [&](const QStringList& row) {
        out.write(EncodeFrame({FrameKind::Row, row}));
        ++rows;
    });
    out.write(EncodeFrame({FrameKind::End, {QString::number(rows)}}));
}

void Answer(const JetFile& file, const QStringList& request, QIODevice& out) {
    if (request.value(0) == u"rows"_s) return SendRows(file, request.value(1), out);
    const QStringList names = request.value(0) == u"columns"_s ? file.Columns(request.value(1)) : file.Tables();
    out.write(EncodeFrame({FrameKind::Names, names}));
}

}  // namespace

void ServeJetFile(const QString& path, QIODevice& in, QIODevice& out) {
    // These library options would change text, search other folders or print to standard output.
    for (const char* variable : {"MDBICONV", "MDBPATH", "MDBOPTS"}) qunsetenv(variable);
    try {
        const JetFile file(path);
        for (QByteArray head = ReadFully(in, kFrameHead); !head.isEmpty(); head = ReadFully(in, kFrameHead)) {
            Answer(file, ParseFrame(ReadFully(in, FrameLength(head))).texts, out);
            if (auto* buffered = qobject_cast<QFileDevice*>(&out)) buffered->flush();
        }
    } catch (const platform::RuntimeError& error) {
        out.write(EncodeFrame({FrameKind::Failure, {error.Description()}}));
    }
}

void ServeJetFile(const QString& path) {
    QFile in, out;
    if (in.open(0, QIODevice::ReadOnly | QIODevice::Unbuffered) && out.open(1, QIODevice::WriteOnly))
        ServeJetFile(path, in, out);
}

}  // namespace setup
