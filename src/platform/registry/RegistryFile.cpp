#include "platform/registry/RegistryFile.h"

#include <QStringDecoder>
#include <QStringList>
#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace platform {
namespace {

constexpr std::pair<char16_t, char16_t> kEscapes[] = {
    {u'\\', u'\\'}, {u'"', u'"'}, {u'\n', u'n'}, {u'\r', u'r'}, {u'\0', u'0'}};

QString Quoted(const QString& text) {
    QString quoted = u"\""_s;
    for (const QChar sign : text) {
        QChar written = sign;
        for (const auto& [plain, escaped] : kEscapes)
            if (sign == plain) {
                quoted += u'\\';
                written = escaped;
            }
        quoted += written;
    }
    return quoted + u'"';
}

/// Parses and removes a quoted string at the beginning of the line; nullopt if malformed.
std::optional<QString> TakeQuoted(QStringView& line) {
    if (!line.startsWith(u'"')) return std::nullopt;
    QString text;
    for (qsizetype i = 1; i < line.size(); ++i) {
        if (line[i] == u'"') {
            line = line.mid(i + 1);
            return text;
        }
        QChar plain = line[i];
        if (plain == u'\\') {
            if (++i == line.size()) return std::nullopt;
            const auto* found = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                             [&](const auto& escape) { return line[i] == escape.second; });
            if (found == std::end(kEscapes)) return std::nullopt;
            plain = found->first;
        }
        text += plain;
    }
    return std::nullopt;
}

bool ReadValue(QStringView line, RegistryContent::Key& key) {
    const std::optional<QString> name = TakeQuoted(line);
    if (!name || !IsUsableValueName(*name) || !line.startsWith(u'=')) return false;
    line = line.mid(1);
    RegistryContent::Value value{*name, {}};
    if (line.startsWith(u'"')) {
        const std::optional<QString> text = TakeQuoted(line);
        if (!text || !line.isEmpty()) return false;
        value.data = *text;
    } else {
        bool good = false;
        value.data = line.toUInt(&good);
        if (!good) return false;
    }
    key.values[FoldedName(*name)] = std::move(value);
    return true;
}

QString ValueLine(const RegistryContent::Value& value) {
    const auto* text = std::get_if<QString>(&value.data);
    return Quoted(value.name) + u'=' +
           (text != nullptr ? Quoted(*text) : QString::number(std::get<quint32>(value.data))) + u'\n';
}

}  // namespace

bool IsUsableKeyPath(const QString& path) {
    if (!path.isValidUtf16()) return false;
    for (const QChar unusable : {u'\n', u'\r', u'\0'})
        if (path.contains(unusable)) return false;
    const QList<QStringView> names = QStringView(path).split(u'\\');
    return names.size() <= kMaxKeyDepth &&
           std::all_of(names.begin(), names.end(), [](QStringView name) { return name.size() <= kMaxNameLength; });
}

bool IsUsableValueName(const QString& name) { return name.size() <= kMaxNameLength; }

QString FoldedName(const QString& name) { return name.toCaseFolded(); }

const RegistryContent::Key* RegistryContent::Find(const QString& path) const {
    const auto found = keys.find(FoldedName(path));
    return found == keys.end() ? nullptr : &found->second;
}

RegistryContent::Key* RegistryContent::Find(const QString& path) {
    return const_cast<Key*>(std::as_const(*this).Find(path));
}

RegistryContent::Key& RegistryContent::Make(const QString& path) {
    const qsizetype end = path.lastIndexOf(u'\\');
    if (end > 0) Make(path.first(end));
    return keys.try_emplace(FoldedName(path), Key{path, {}}).first->second;
}

QByteArray RegistryText(const RegistryContent& content) {
    QString text;
    for (const auto& [folded, key] : content.keys) {
        text += u'[' + key.path + u"]\n"_s;
        for (const auto& [name, value] : key.values) text += ValueLine(value);
    }
    return text.toUtf8();
}

std::optional<RegistryContent> ParseRegistry(const QByteArray& text) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = utf8(text);
    if (utf8.hasError()) return std::nullopt;
    RegistryContent content;
    RegistryContent::Key* key = nullptr;
    for (const QString& line : decoded.split(u'\n', Qt::SkipEmptyParts)) {
        const bool isKey = line.startsWith(u'[') && line.endsWith(u']');
        const QString path = isKey ? line.sliced(1, line.size() - 2) : QString();
        if (isKey ? !IsUsableKeyPath(path) : key == nullptr || !ReadValue(line, *key)) return std::nullopt;
        if (isKey) key = &content.Make(path);
    }
    return content;
}

}  // namespace platform
