#include "platform/ToolkitStart.h"

#include <QFileInfo>
#include <QList>
#include <QString>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace {

struct KeptMessage {
    QtMsgType type;
    QString text;
};

// Global, since a Qt message handler takes no context.
QString g_program;
QList<KeptMessage> g_kept;
QtMessageHandler g_previous = nullptr;

void PrintLine(const QString& text) { std::fprintf(stderr, "%s\n", qUtf8Printable(text)); }

/// The fatal message is the same for a missing display and a missing plugin; only a warning before it has the cause.
[[noreturn]] void Fail(const QString& fatal) {
    const bool display = std::any_of(g_kept.begin(), g_kept.end(), [](const KeptMessage& kept) {
        return kept.text.contains(QLatin1StringView("display"), Qt::CaseInsensitive);
    });
    if (display) {
        PrintLine(g_program + QStringLiteral(": 画面 (ディスプレイ) に接続できないため、起動できません。"));
    } else {
        PrintLine(g_program + QStringLiteral(": 画面を表示する準備に失敗したため、起動できません。"));
        for (const KeptMessage& kept : g_kept) PrintLine(kept.text);
        PrintLine(fatal);
    }
    std::fflush(stderr);
    std::_Exit(1);
}

void KeepMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtFatalMsg) Fail(text);
    g_kept.append({type, text});
}

}  // namespace

ToolkitStart::ToolkitStart(const char* program) {
    g_program = QFileInfo(QString::fromLocal8Bit(program)).fileName();
    g_previous = qInstallMessageHandler(KeepMessage);
}

ToolkitStart::~ToolkitStart() {
    qInstallMessageHandler(g_previous);
    for (const KeptMessage& message : std::exchange(g_kept, {}))
        qt_message_output(message.type, QMessageLogContext(), message.text);
}

int& ToolkitStart::ArgumentCount(int argc) {
    static int count = 0;
    count = std::min(argc, 1);
    return count;
}

bool PrintVersion(int argc, char** argv, const char* program) {
    if (argc != 2 || std::string_view(argv[1]) != "--version") return false;
    std::printf("%s %s\n", program, SUITE_VERSION);
    return true;
}
