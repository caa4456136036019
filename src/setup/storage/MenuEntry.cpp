// Part of Installer.h: the desktop entry.
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "platform/AtomicFile.h"
#include "platform/FileRights.h"
#include "platform/RuntimeError.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

/// Escapes a value: a backslash begins an escape sequence there.
QString Value(QString text) { return text.replace(u'\\', u"\\\\"_s).replace(u'\n', u"\\n"_s); }

/// Quotes an argument of the Exec line; "%" would begin a field code.
QString Argument(const QString& text) {
    QString quoted;
    for (const QChar unit : text) {
        if (unit == u'"' || unit == u'`' || unit == u'$' || unit == u'\\') quoted += u'\\';
        quoted += unit;
        if (unit == u'%') quoted += unit;
    }
    return Value(u'"' + quoted + u'"');
}

QString MenuFolder() {
    const bool forAll = platform::OwnUserId() == 0 && qEnvironmentVariableIsEmpty("XDG_DATA_HOME");
    return (forAll ? u"/usr/local/share"_s : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)) +
           u"/applications"_s;
}

/// By path, since two installations may have the same folder name.
QString EntryName(const QString& root) {
    const QByteArray digest = QCryptographicHash::hash(root.toUtf8(), QCryptographicHash::Sha1).toHex().first(8);
    return u"youin-meibo-"_s + QString::fromLatin1(digest) + u".desktop"_s;
}

}  // namespace

QByteArray MenuEntry(const QString& root) {
    const QString program = root + u"/prgbin/要員名簿照会"_s;
    const QStringList lines{u"[Desktop Entry]"_s,
                            u"Type=Application"_s,
                            u"Version=1.4"_s,
                            u"Name="_s + Value(u"要員名簿照会（%1）"_s.arg(QFileInfo(root).fileName())),
                            u"Comment="_s + Value(u"%1 の要員名簿を照会します"_s.arg(root)),
                            u"TryExec="_s + Value(program),
                            u"Exec="_s + Argument(program),
                            u"Icon=youin-meibo"_s,
                            u"Terminal=false"_s,
                            u"StartupNotify=true"_s,
                            u"StartupWMClass=youin-meibo"_s,
                            u"Categories=Office;Database;"_s};
    return (lines.join(u'\n') + u'\n').toUtf8();
}

QString WriteMenuEntry(const QString& root) {
    const QString path = MenuFolder() + u'/' + EntryName(root);
    QString error;
    if (!QDir().mkpath(MenuFolder()) || !platform::ReplaceFile(path, MenuEntry(root), error))
        throw platform::RuntimeError(kWorkFailed, u"%1 に書き込めません。%2"_s.arg(path, error));
    return path;
}

}  // namespace setup
