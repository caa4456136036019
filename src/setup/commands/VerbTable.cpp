#include "setup/commands/VerbTable.h"

#include "setup/commands/Verbs.h"
#include "setup/storage/JetReader.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

/// Started by programs of this project only; see JetReader.h and packaging/CMakeLists.txt.
QList<Verb> InternalVerbs() {
    return {{.name = kJetServerVerb,
             .operands = {{.name = {u"ファイル"_s, u"FILE"_s}, .missing = u"ファイルを指定してください。"_s}},
             .run = ServeFile},
            {.name = u"manual-page"_s,
             .operands = {{.name = {u"言語"_s, u"LANGUAGE"_s}, .missing = u"言語を指定してください。"_s}},
             .run = PrintManualPage}};
}

}  // namespace

void ServeFile(const Arguments& arguments, const Console& /*console*/) { ServeJetFile(arguments.Operand(0)); }

const QList<Verb>& AllVerbs() {
    static const QList<Verb> verbs =
        InstallationVerbs() + LogVerbs() + DatabaseVerbs() + ReportVerbs() + InternalVerbs();
    return verbs;
}

OperandDefinition InstallationOperand() {
    return {.name = {u"フォルダ"_s, u"FOLDER"_s},
            .description = {u"インストールのフォルダ"_s, u"folder of the installation"_s},
            .missing = u"インストール先のフォルダを指定してください。"_s};
}

OptionDefinition OdbcOption(const Words& description) {
    const QString text = u"%1\nDriver=…;Server=…;Port=…;Database=…;UID=…;PWD=…\n%2 DSN=…;UID=…;PWD=…"_s;
    return {.name = option::kOdbc,
            .value = {u"接続文字列"_s, u"STRING"_s},
            .description = {text.arg(description.japanese, u"または"_s), text.arg(description.english, u"or"_s)}};
}

}  // namespace setup
