// Part of JetFile.h: header and dates of the formats.
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <cmath>

#include "platform/JetHeader.h"
#include "platform/RuntimeError.h"
#include "setup/storage/JetFile.h"

using namespace Qt::StringLiterals;

namespace setup {
namespace {

constexpr qint64 kVersionOffset = 0x14;
constexpr qint64 kJet3Page = 2048, kJet4Page = 4096;
constexpr qint64 kLargestFile = qint64{1} << 31;
constexpr double kFirstDay = -657'434, kLastDay = 2'958'465;  // 0100-01-01, 9999-12-31
constexpr int kSecondsOfDay = 86'400;

[[noreturn]] void Fail(const QString& text) { throw platform::RuntimeError(1, text); }

}  // namespace

void CheckJetFile(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists()) Fail(u"%1 がありません。"_s.arg(path));
    // Opening a pipe would block until there is a writer, and a device may return data endlessly.
    if (!info.isFile()) Fail(u"%1 は通常のファイルではありません。"_s.arg(path));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) Fail(u"%1 を読む権限がありません。"_s.arg(path));
    const QByteArray header = file.read(kVersionOffset + 1);
    if (header.size() <= kVersionOffset || !platform::IsJetHeader(header))
        Fail(u"%1 は Jet/ACE 形式のデータベースではありません。"_s.arg(path));
    const qint64 page = header[kVersionOffset] == 0 ? kJet3Page : kJet4Page;
    if (file.size() % page != 0) Fail(u"%1 は途中で切れています。"_s.arg(path));
    if (file.size() > kLargestFile) Fail(u"%1 は Jet/ACE 形式の上限の 2 GB を超えています。"_s.arg(path));
}

std::optional<QString> JetDate(double days, bool withoutTime) {
    if (!(days > kFirstDay - 1 && days < kLastDay + 1)) return std::nullopt;
    const double whole = std::trunc(days);
    const auto seconds = static_cast<qint64>(std::llround(std::abs(days - whole) * kSecondsOfDay));
    const QDateTime stamp =
        QDateTime(QDate(1899, 12, 30).addDays(static_cast<qint64>(whole)), QTime(0, 0), Qt::UTC).addSecs(seconds);
    const bool midnight = stamp.time() == QTime(0, 0);
    return stamp.toString(withoutTime || midnight ? u"yyyyMMdd"_s : u"yyyyMMdd HHmmss"_s);
}

}  // namespace setup
