#include "setup/checks/Printers.h"

#include <cups/cups.h>

#include <QFileInfo>

#include "setup/schema/GeneralDatabase.h"
#include "setup/storage/Installation.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr int kConnectTimeout = 5000;  // milliseconds

/// A row of the table 出力先.
struct TargetRow {
    QString report, kind, name;

    /// The words of a message for which reports the target is.
    QString Reports() const { return report.isEmpty() ? u"すべての帳票"_s : u"帳票「%1」"_s.arg(report); }
    /// Command that sets the default printer again.
    QString Reset(const QString& root) const {
        return ToolCommand(u"printer"_s, root,
                           u"--to-default"_s + (report.isEmpty() ? QString() : u" --report "_s + ShellWord(report)));
    }
};

/// What is wrong with a target; empty if nothing is.
QString FaultOf(const TargetRow& row) {
    if (row.kind == u"フォルダ"_s)
        return QFileInfo(row.name).isDir() ? QString() : u"出力先のフォルダ %1 がありません。"_s.arg(row.name);
    switch (FindPrinter(row.name)) {
        case PrinterState::Known:
            return {};
        case PrinterState::Unknown:
            return u"出力先のプリンター「%1」は CUPS にありません。"_s.arg(row.name);
        default:
            return u"出力先のプリンター「%1」を確かめられません。CUPS に接続できません。"_s.arg(row.name);
    }
}

const QString kNothingPrinted = u"印刷すると失敗の理由が表示され、何も出ません。"_s;

bool IsKnownKind(const TargetRow& row) { return row.kind == u"フォルダ"_s || row.kind == u"プリンター"_s; }

void CheckTarget(CheckReport& report, const QString& root, const TargetRow& row, const QString& where) {
    const QString fault = FaultOf(row);
    if (!fault.isEmpty())
        report.Add({.what = where + fault,
                    .effect = kNothingPrinted,
                    .remedy = u"出力先を suite-setup printer で決め直してください。通常使うプリンターに戻すには、次を実"
                              u"行してください。"_s,
                    .commands = {row.Reset(root)}});
}

}  // namespace

PrinterState FindPrinter(const QString& name) {
    cupsSetServer(nullptr);  // drop the cached server; use the current environment and settings
    http_t* service =
        httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, kConnectTimeout, nullptr);
    if (service == nullptr) return PrinterState::NoService;
    cups_dest_t* found = cupsGetNamedDest(service, name.toUtf8().constData(), nullptr);
    const bool known = found != nullptr;
    cupsFreeDests(known ? 1 : 0, found);
    httpClose(service);
    return known ? PrinterState::Known : PrinterState::Unknown;
}

void CheckTargets(CheckReport& report, const QString& root, const QString& templateFile, const QStringList& reports) {
    database::Connection connection = OpenSuiteFile(templateFile, database::ConnectMode::Read);
    const auto rows = RowsOf(connection, u"SELECT 帳票, 種類, 名前 FROM 出力先 ORDER BY 帳票"_s);
    for (const QStringList& texts : rows.value_or(QList<QStringList>())) {
        const TargetRow row{texts[0], texts[1], texts[2]};
        const QString where = u"帳票ファイル %1 の%2の"_s.arg(templateFile, row.Reports());
        const QStringList repair{ToolCommand(u"repair"_s, root)};
        if (!IsKnownKind(row))
            report.Add({.what = where + u"出力先の種類「%1」は使えません。"_s.arg(row.kind),
                        .effect = kNothingPrinted,
                        .commands = repair});
        else if (!row.report.isEmpty() && !reports.contains(row.report))
            report.Add({.what = where + u"出力先が決めてありますが、この帳票はありません。"_s,
                        .effect = u"出力先を決めたつもりの帳票が、別のプリンターに出ます。"_s,
                        .commands = repair});
        else
            CheckTarget(report, root, row, where);
    }
}

}  // namespace setup
