#include "setup/storage/JetReader.h"

#include <QDateTime>
#include <QFileInfo>

#include "platform/RuntimeError.h"
#include "setup/TerminalTable.h"
#include "setup/storage/JetFile.h"
#include "setup/storage/TableStream.h"

using namespace Qt::StringLiterals;

namespace setup {
namespace {

constexpr qint64 kMegabyte = qint64{1} << 20;
// A row takes at least an entry in the offset table and a column count. The ratio of frame to stored bytes is highest
// for a row that is older than most of its 255 columns.
constexpr qint64 kSmallestRow = 3;
constexpr qint64 kMostFramePerByte = 256;

[[noreturn]] void Fail(const QString& text) { throw platform::RuntimeError(1, text); }

}  // namespace

platform::ProcessLimits JetReaderLimits(qint64 fileBytes) {
    const auto megabytes = static_cast<int>(fileBytes / kMegabyte);
    return {.cpuSeconds = 10 + 2 * megabytes, .waitMilliseconds = 60'000 + 4'000 * megabytes};
}

class JetReader::Session {
  public:
    Session(const QString& path, const QString& program, const platform::ProcessLimits& limits)
        : path_(path),
          size_(QFileInfo(path).size()),
          changed_(QFileInfo(path).lastModified()),
          process_(program, {kJetServerVerb, QFileInfo(path).absoluteFilePath()}, limits) {
        if (!process_.Started()) Fail(u"ファイルを読むプログラム %1 を起動できません。"_s.arg(program));
    }

    void Ask(const QStringList& request) { process_.Write(EncodeFrame({FrameKind::Request, request})); }

    /// Result of a parsing function; an error means that the file is damaged.
    template <class Parsing>
    auto Checked(const Parsing& parse) const {
        try {
            return parse();
        } catch (const platform::RuntimeError&) {
            FailDamaged();
        }
    }

    Frame Receive() {
        const QByteArray head = Take(kFrameHead);
        const qsizetype length = Checked([&] { return FrameLength(head); });
        received_ += length;
        if (received_ > kMegabyte + kMostFramePerByte * size_) FailDamaged();
        const QByteArray body = Take(length);
        const Frame frame = Checked([&] { return ParseFrame(body); });
        if (frame.kind == FrameKind::Failure)
            Fail(StripControlCharacters(frame.texts.value(0)) + u"何も取り込んでいません。"_s);
        return frame;
    }

    QStringList ReceiveNames(qsizetype most) {
        const Frame frame = Receive();
        return Checked([&] { return ParseNames(frame, most); });
    }

    qint64 MostRows() const { return size_ / kSmallestRow; }
    void CheckUnchanged() const {
        const QFileInfo now(path_);
        if (now.size() != size_ || now.lastModified() != changed_)
            Fail(u"%1 は読み取り中に変更されました。何も取り込んでいません。"_s.arg(path_));
    }
    [[noreturn]] void FailDamaged() const {
        Fail(u"%1 を最後まで読めません。ファイルが壊れています。何も取り込んでいません。"_s.arg(path_));
    }

  private:
    QByteArray Take(qsizetype count) {
        QByteArray bytes = process_.Read(count);
        if (bytes.size() == count) return bytes;
        if (process_.TimedOut())
            Fail(
                u"%1 の読み取りが時間内に終わりません。ファイルが壊れているおそれがあります。何も取り込んでいません。"_s
                    .arg(path_));
        FailDamaged();
    }

    QString path_;
    qint64 size_;
    QDateTime changed_;
    platform::LimitedProcess process_;
    qint64 received_ = 0;
};

JetReader::JetReader(const QString& path, const QString& program)
    : JetReader(path, program, JetReaderLimits(QFileInfo(path).size())) {}

JetReader::JetReader(const QString& path, const QString& program, const platform::ProcessLimits& limits) {
    CheckJetFile(path);
    session_ = std::make_unique<Session>(path, program, limits);
    session_->Ask({u"tables"_s});
    tables_ = session_->ReceiveNames(kMostTables);
}

JetReader::~JetReader() = default;

QStringList JetReader::Columns(const QString& table) const {
    session_->Ask({u"columns"_s, table});
    return session_->ReceiveNames(kMostColumns);
}

void JetReader::ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const {
    session_->Ask({u"rows"_s, table});
    qint64 rows = 0;
    Frame frame = session_->Receive();
    for (; frame.kind == FrameKind::Row; frame = session_->Receive()) {
        if (++rows > session_->MostRows()) session_->FailDamaged();
        take(frame.texts);
    }
    if (session_->Checked([&] { return ParseCount(frame); }) != rows) session_->FailDamaged();
}

void JetReader::CheckUnchanged() const { session_->CheckUnchanged(); }

}  // namespace setup
