#include "platform/ToolkitStart.h"

#include <QFileInfo>
#include <QList>
#include <QString>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
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

void KeepMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type != QtFatalMsg) return g_kept.append({type, text});
    std::fprintf(stderr, "%s: 画面 (ディスプレイ) に接続できないため、起動できません。\n", qUtf8Printable(g_program));
    std::fflush(stderr);
    std::_Exit(1);
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
