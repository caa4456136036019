// Part of ReportOutput.h: HandToPrinter.

#include "report-host/service/ReportOutput.h"

#include <cups/cups.h>

#include <QFile>
#include <memory>

#include "report-host/layout/PreparedReport.h"

using namespace Qt::StringLiterals;

namespace {

using Service = std::unique_ptr<http_t, decltype([](http_t* service) { httpClose(service); })>;
using Printer = std::unique_ptr<cups_dest_t, decltype([](cups_dest_t* dest) { cupsFreeDests(1, dest); })>;
using PrinterInfo = std::unique_ptr<cups_dinfo_t, decltype([](cups_dinfo_t* info) { cupsFreeDestInfo(info); })>;

/// RAII wrapper of CUPS job options.
class JobOptions {
  public:
    JobOptions() = default;
    ~JobOptions() { cupsFreeOptions(count_, options_); }
    JobOptions(const JobOptions&) = delete;
    JobOptions& operator=(const JobOptions&) = delete;

    void Set(const char* name, const char* value) { count_ = cupsAddOption(name, value, count_, &options_); }
    int Count() const { return count_; }
    cups_option_t* Options() const { return options_; }

  private:
    int count_ = 0;
    cups_option_t* options_ = nullptr;
};

QString CupsErrorText() { return QString::fromUtf8(cupsLastErrorString()); }

constexpr int kConnectTimeout = 30000;  // milliseconds to connect to the print service

Service Connect() {
    cupsSetServer(nullptr);  // drop the cached server; use the current environment and settings
    Service service(
        httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, kConnectTimeout, nullptr));
    if (service == nullptr) throw ReportFailure(u"印刷サービスに接続できません。"_s);
    return service;
}

Printer FindPrinter(http_t* service, const QString& named) {
    const QByteArray name = named.toUtf8();
    Printer found(cupsGetNamedDest(service, named.isEmpty() ? nullptr : name.constData(), nullptr));
    if (found != nullptr) return found;
    throw ReportFailure(named.isEmpty() ? u"通常使うプリンターが決められていません。"_s
                                        : u"プリンター「%1」はありません。"_s.arg(named));
}

[[noreturn]] void FailToPrint(const QString& printer, ipp_status_t status) {
    switch (status) {
        case IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS:
            throw ReportFailure(u"プリンター「%1」は印刷を受け付けていません。"_s.arg(printer));
        case IPP_STATUS_ERROR_NOT_AUTHORIZED:
        case IPP_STATUS_ERROR_NOT_AUTHENTICATED:
        case IPP_STATUS_ERROR_FORBIDDEN:
            throw ReportFailure(u"プリンター「%1」を使う権限がありません。"_s.arg(printer));
        default:
            throw ReportFailure(u"プリンター「%1」に印刷を渡せません。（%2）"_s.arg(printer, CupsErrorText()));
    }
}

/// PWG sizes are in hundredths of a millimetre, in portrait orientation.
void SetPaper(JobOptions& options, http_t* service, cups_dest_t* printer, QSizeF page) {
    const PrinterInfo info(cupsCopyDestInfo(service, printer));
    if (info == nullptr) return;
    const int width = qRound(qMin(page.width(), page.height()) * 100);
    const int length = qRound(qMax(page.width(), page.height()) * 100);
    cups_size_t paper;
    if (!cupsGetDestMediaBySize(service, printer, info.get(), width, length, CUPS_MEDIA_FLAGS_DEFAULT, &paper))
        throw ReportFailure(
            u"プリンター「%1」には %2 × %3 mm の用紙がありません。"_s.arg(QString::fromUtf8(printer->name))
                .arg(page.width())
                .arg(page.height()));
    options.Set("media", paper.media);
}

}  // namespace

void HandToPrinter(const QString& pdf, const QString& printer, const QString& title, QSizeF page) {
    const Service service = Connect();
    const Printer found = FindPrinter(service.get(), printer);
    JobOptions options;
    for (int i = 0; i < found->num_options; ++i) options.Set(found->options[i].name, found->options[i].value);
    SetPaper(options, service.get(), found.get(), page);
    options.Set("print-scaling", "none");
    if (cupsPrintFile2(service.get(), found->name, QFile::encodeName(pdf).constData(), title.toUtf8().constData(),
                       options.Count(), options.Options()) == 0)
        FailToPrint(QString::fromUtf8(found->name), cupsLastError());
}
