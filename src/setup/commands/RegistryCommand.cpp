// Part of Verbs.h: the verbs `registry list`, `registry get` and `registry set`.
#include "setup/commands/Verbs.h"

#include "platform/Services.h"
#include "setup/UsageError.h"

using namespace Qt::StringLiterals;
using namespace platform;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

struct Root {
    QString name;
    RegistryKey key;
    QString (*file)();
};

const QList<Root>& Roots() {
    static const QList<Root> roots = {{u"HKLM"_s, MachineRoot(), MachineRegistryFile},
                                      {u"HKCU"_s, UserRoot(), UserRegistryFile}};
    return roots;
}

struct NamedKey {
    const Root* root;
    QString path;
};

NamedKey ParseKey(const QString& text) {
    const qsizetype end = text.indexOf(u'\\');
    for (const Root& root : Roots())
        if (text.first(end < 0 ? text.size() : end).compare(root.name, Qt::CaseInsensitive) == 0)
            return {&root, end < 0 ? QString() : text.sliced(end + 1)};
    throw UsageError(u"キー %1 は HKLM または HKCU で始めてください。"_s.arg(text));
}

[[noreturn]] void Fail(long status) {
    switch (status) {
        case kRegistryNotFound:
            throw RuntimeError(kWorkFailed, u"キーまたは値がありません。"_s);
        case kRegistryDenied:
            throw RuntimeError(kWorkFailed, u"レジストリを読み書きする権限がありません。"_s);
        case kRegistryBadName:
            throw RuntimeError(kWorkFailed, u"キーまたは値の名前が長すぎるか、使えない文字を含んでいます。"_s);
        case kRegistryDamaged:
            throw RuntimeError(kWorkFailed, u"レジストリのファイルが壊れています。"_s);
        case kRegistryNotWritten:
            throw RuntimeError(kWorkFailed, u"レジストリのファイルに書き込めません。元のままです。"_s);
        default:
            throw RuntimeError(kWorkFailed, u"レジストリを使用できません。（状態 %1）"_s.arg(status));
    }
}

void Need(long status) {
    if (status != kRegistryDone) Fail(status);
}

QString TextOf(const RegistryKey& key, const QString& name) {
    Registry& registry = *Services().registry;
    QString buffer;
    int length = 0;
    const long status = registry.QueryText(key, name, buffer, length);
    if (status == kRegistryOtherType) {
        quint32 number = 0;
        Need(registry.QueryNumber(key, name, number));
        return QString::number(number);
    }
    if (status != kRegistryMoreData) Need(status);
    buffer = QString(length, u' ');
    Need(registry.QueryText(key, name, buffer, length));
    return buffer.first(length - 1);
}

/// Keys that have values, each with its root.
void ListRoot(const Root& root, const QString& path, const Console& console) {
    RegistryContent content;
    Need(LoadRegistry(root.file(), content));
    const QString folded = FoldedName(path);
    RegistryContent listed;
    for (const auto& [name, key] : content.keys) {
        const bool below = path.isEmpty() || name == folded || name.startsWith(folded + u'\\');
        if (!below || key.values.empty()) continue;
        const QString full = root.name + u'\\' + key.path;
        listed.keys[full] = {full, key.values};
    }
    console.out << QString::fromUtf8(RegistryText(listed));
}

}  // namespace

void ListRegistry(const Arguments& arguments, const Console& console) {
    if (const QString asked = arguments.Operand(0); !asked.isEmpty()) {
        const NamedKey named = ParseKey(asked);
        return ListRoot(*named.root, named.path, console);
    }
    for (const Root& root : Roots()) ListRoot(root, {}, console);
}

void GetRegistryValue(const Arguments& arguments, const Console& console) {
    const NamedKey named = ParseKey(arguments.Operand(0));
    RegistryKey key;
    Need(Services().registry->OpenKey(named.root->key, named.path, kRegistryRead, key));
    console.out << TextOf(key, arguments.Operand(1)) << u'\n';
}

void SetRegistryValue(const Arguments& arguments, const Console& /*console*/) {
    const bool asNumber = arguments.Has(option::kNumber);
    const NamedKey named = ParseKey(arguments.Operand(0));
    const QString name = arguments.Operand(1), value = arguments.Operand(2);
    bool good = true;
    const quint32 number = asNumber ? value.toUInt(&good) : 0;
    if (!good) throw UsageError(u"値 %1 は 0 から 4294967295 までの整数にしてください。"_s.arg(value));
    if (named.path.isEmpty()) throw UsageError(u"値は %1 の下のキーに付けてください。"_s.arg(named.root->name));
    Registry& registry = *Services().registry;
    RegistryKey key;
    Need(registry.CreateKey(named.root->key, named.path, kRegistryAll, key));
    Need(asNumber ? registry.SetNumber(key, name, number) : registry.SetText(key, name, value, TwoByteLength(value)));
}

}  // namespace setup
