#include "setup/checks/CheckReport.h"

using namespace Qt::StringLiterals;

namespace setup {

void CheckReport::Add(const Finding& finding) {
    // With several users the same fault of a common file is found for each of them.
    const QString identity = finding.what + finding.entries.join(u'\n');
    if (seen_.contains(identity)) return;
    seen_.insert(identity);
    out_ << u"・"_s << finding.what << u'\n';
    for (const QString& entry : finding.entries) out_ << u"  "_s << entry << u'\n';
    if (!finding.effect.isEmpty()) out_ << u"  影響: "_s << finding.effect << u'\n';
    const QString standard = finding.commands.isEmpty() ? QString() : u"次を実行してください。"_s;
    if (const QString remedy = finding.remedy.isEmpty() ? standard : finding.remedy; !remedy.isEmpty())
        out_ << u"  対処: "_s << remedy << u'\n';
    for (const QString& command : finding.commands) out_ << u"    "_s << command << u'\n';
}

QString ShellWord(const QString& word) { return u'\'' + QString(word).replace(u'\'', u"'\\''"_s) + u'\''; }

QString ToolCommand(const QString& verb, const QString& root, const QString& rest) {
    return u"suite-setup %1 "_s.arg(verb) + ShellWord(root) + (rest.isEmpty() ? QString() : u' ' + rest);
}

}  // namespace setup
