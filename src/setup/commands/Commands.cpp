#include "setup/commands/Commands.h"

#include <QFileInfo>
#include <limits>

#include "platform/RuntimeError.h"
#include "setup/UsageError.h"
#include "setup/commands/Arguments.h"
#include "setup/commands/CheckCommand.h"
#include "setup/commands/HistoryCommand.h"
#include "setup/commands/ImportCommand.h"
#include "setup/commands/LinksCommand.h"
#include "setup/commands/MoveCommand.h"
#include "setup/commands/PrinterCommand.h"
#include "setup/commands/RegistryCommand.h"
#include "setup/commands/ServerCommands.h"
#include "setup/commands/TemplateCommands.h"
#include "setup/commands/UpgradeCommand.h"
#include "setup/sample/SampleTrial.h"
#include "setup/storage/Installer.h"
#include "setup/storage/JetServer.h"
#include "setup/storage/PinSealing.h"
#include "setup/storage/ReportHostInstallation.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

const QString kUsage =
    u"使い方:\n"
    u"  suite-setup init フォルダ [オプション]     インストールを作る\n"
    u"      --staff N             見本の要員の人数（1 から 99999、省略時は 300）\n"
    u"      --seed N              見本の種（同じ種からは同じデータができる、省略時は 1）\n"
    u"      --kind accdb|mdb      データベースファイルの種類（省略時は accdb）\n"
    u"      --install-kind 0|1    0: 構成を全員で共有する  1: 利用者ごとに持つ（省略時は 0）\n"
    u"      --pin                 暗証番号を尋ねる会社にして、権限の異なる要員を表示する\n"
    u"      --replace             既にあるインストールを作り直す（中のデータは失われる）\n"
    u"      --menu                インストールをデスクトップのメニューに登録する\n"
    u"  suite-setup history フォルダ [オプション]  稼動履歴を古い順に表示する\n"
    u"      --run N               新しい方から N 番目の実行だけを表示する\n"
    u"      --user NAME           利用者 NAME の履歴だけを表示する\n"
    u"      --follow              中断されるまで、追加される行を待って表示する\n"
    u"  suite-setup links フォルダ [--user NAME]   プログラム間で受け取りを待っている連携情報を表示する\n"
    u"  suite-setup check フォルダ [--user NAME]   足りないもの、読めないもの、リンクや信頼の誤りを表示する\n"
    u"  suite-setup move フォルダ                  複写や移動をしたインストールに自分のファイルを使わせる\n"
    u"  suite-setup upgrade フォルダ [--menu]      "
    u"プログラムを新しい版にし、増えたテーブルや列を加える（データはそのまま）\n"
    u"      --odbc 接続文字列     サーバーの一般データベースにも、表の所有者として加える\n"
    u"  suite-setup seal-pins フォルダ             そのまま保存されている暗証番号を鍵で封じる（繰り返してもよい）\n"
    u"      --odbc 接続文字列     サーバーの暗証番号を、表に書き込める利用者として封じる\n"
    u"  suite-setup server-init --odbc 接続文字列 [--from フォルダ]\n"
    u"                                             サーバーに一般データベースの表を作り、インストールから複写する\n"
    u"      --add-missing         既にある表に、足りない表、列、索引、関数だけを加える（データはそのまま）\n"
    u"  suite-setup use-server フォルダ --odbc 接続文字列\n"
    u"                                             インストールの一般データベースをサーバーのものにする\n"
    u"      接続文字列            Driver=名前;Server=名前;Port=番号;Database=名前;UID=名前;PWD=パスワード\n"
    u"                            または DSN=名前;UID=名前;PWD=パスワード\n"
    u"  suite-setup import フォルダ FILE           .mdb または .accdb の一般データベースを取り込む\n"
    u"  suite-setup printer フォルダ [オプション]  帳票の出力先を表示する、または決める\n"
    u"      --to-printer NAME     プリンター NAME に印刷する\n"
    u"      --to-folder DIR       印刷せず、PDF をフォルダ DIR に置く\n"
    u"      --to-default          通常使うプリンターに印刷する（初めはこの状態）\n"
    u"      --report NAME         帳票 NAME だけの出力先にする\n"
    u"  suite-setup registry list [キー]           登録されている値を表示する（キーは HKLM または HKCU で始める）\n"
    u"  suite-setup registry get キー 名前         値を一つ表示する\n"
    u"  suite-setup registry set キー 名前 値      値を一つ書く（--number を付けると数値として）\n"
    u"  suite-setup forms export フォルダ [帳票名]  帳票の定義を 帳票名.txt に書き出す（省略時はすべて）\n"
    u"  suite-setup forms import フォルダ [帳票名]  帳票名.txt "
    u"を取り込む（省略時は今ある帳票のうちファイルがあるもの）\n"
    u"  suite-setup forms check フォルダ [帳票名]   帳票の定義の誤りを行番号と理由で表示する\n"
    u"  suite-setup forms pdf フォルダ 帳票名       今ある作業テーブルのデータで帳票を PDF にする\n"
    u"      --out FILE            PDF のファイル（省略時は今のフォルダの 帳票名.pdf）\n"
    u"      --folder DIR          帳票名.txt を置くフォルダ（export と import、省略時は今のフォルダ）\n"
    u"      --user NAME           利用者 NAME の帳票を扱う（省略時は共通の帳票）\n"
    u"  suite-setup --help                         この説明を表示する\n"
    u"\n"
    u"終了コード: 0 正常  1 途中で失敗した  2 指定に誤りがあり、何も変更していない\n"_s;

void ShowTrialPeople(const QString& root, FileKind kind, const Console& console) {
    const QString general = root + u"/data/gnrdb"_s + (kind == FileKind::Mdb ? u".mdb"_s : u".accdb"_s);
    console.out << u"起動すると暗証番号を尋ねます。次の要員で試せます。\n"_s;
    for (const QString& line : TrialPeople(general, root + u"/conf/"_s + platform::PinKeyFileName()))
        console.out << u"  "_s << line << u'\n';
}

/// Registering a host needs the machine's administrator; the installation is complete without it.
void RegisterHostOrTell(const QString& root, const Console& console) {
    try {
        RegisterReportHost(root);
    } catch (const platform::RuntimeError& error) {
        // One host serves all installations of the machine.
        if (QFileInfo(RegisteredHostFolder().value_or(QString()) + kHostProgramName).isFile()) return;
        console.err << platform::TextForPeople(error) << u"印刷するには、管理者が次を実行してください。\n"_s
                    << u"  suite-setup registry set '%1' Path '%2'\n"_s.arg(ReportHostKey(), ReportHostFolder(root));
    }
}

void MakeFromArguments(const Arguments& arguments, const Console& console) {
    InstallationRequest request;
    request.folder = arguments.installation;
    request.programFolder = console.programFolder;
    request.staff = static_cast<int>(arguments.Number(u"--staff"_s, request.staff, 1, 99999));
    request.seed = static_cast<quint64>(arguments.Number(u"--seed"_s, 1, 0, std::numeric_limits<qint64>::max()));
    request.kind = arguments.Choice(u"--kind"_s, {u"accdb"_s, u"mdb"_s}) == u"mdb"_s ? FileKind::Mdb : FileKind::Accdb;
    request.installKind = arguments.Choice(u"--install-kind"_s, {u"0"_s, u"1"_s}).toInt();
    request.askPins = arguments.Has(u"--pin"_s);
    request.replace = arguments.Has(u"--replace"_s);
    const QString root = MakeInstallation(request);
    console.out << u"%1 に要員 %2 名のインストールを作りました。\n"_s.arg(root).arg(request.staff);
    RegisterHostOrTell(root, console);
    if (arguments.Has(kMenuOption)) EnterInMenu(root, console);
    if (request.askPins) ShowTrialPeople(root, request.kind, console);
}

QList<OptionRule> InitOptions() {
    return {{u"--staff"_s, true}, {u"--seed"_s, true},     {u"--kind"_s, true}, {u"--install-kind"_s, true},
            {u"--pin"_s, false},  {u"--replace"_s, false}, {kMenuOption, false}};
}

QList<OptionRule> NoOptions() { return {}; }

struct Verb {
    QStringView name;  ///< one word or two
    QList<OptionRule> (*options)();
    void (*run)(const Arguments&, const Console&);
    int further = 0;  ///< positional arguments after the installation; negative: no installation
};

constexpr Verb kVerbs[] = {
    {u"init", InitOptions, MakeFromArguments},
    {u"history", HistoryOptions, ShowHistory},
    {u"links", LinksOptions, ShowLinks},
    {u"check", CheckOptions, CheckInstallation},
    {u"move", NoOptions, MoveInstallation},
    {u"upgrade", UpgradeOptions, UpgradeInstallation},
    {u"seal-pins", SealPinsOptions, SealPins},
    {u"server-init", ServerInitOptions, InitServer, -1},
    {u"use-server", UseServerOptions, UseServer},
    {u"import", NoOptions, ImportGeneral, 1},
    {u"printer", PrinterOptions, ChoosePrinter},
    {u"forms export", FormFileOptions, ExportForms, 1},
    {u"forms import", FormFileOptions, ImportForms, 1},
    {u"forms check", FormCheckOptions, CheckForms, 1},
    {u"forms pdf", FormPdfOptions, MakeFormPdf, 1},
};

void RunVerb(const QStringList& arguments, const Console& console) {
    if (arguments.isEmpty()) throw UsageError(u"コマンドを指定してください。"_s);
    // Concerns the machine and the user, not an installation.
    if (arguments.first() == u"registry"_s) return RunRegistryCommand(arguments.mid(1), console);
    if (arguments.first() == kJetServerVerb && arguments.size() == 2) return ServeJetFile(arguments[1]);
    QString asked = arguments.first();
    for (const Verb& verb : kVerbs) {
        const qsizetype words = verb.name.count(u' ') + 1;
        if (words > 1 && verb.name.startsWith(arguments.first() + u' '))
            asked = arguments.first(std::min(words, arguments.size())).join(u' ');
        if (arguments.first(std::min(words, arguments.size())).join(u' ') == verb.name)
            return verb.run(ParseArguments(arguments.mid(words), verb.options(), verb.further), console);
    }
    throw UsageError(u"コマンド %1 はありません。"_s.arg(asked));
}

}  // namespace

int RunSetup(const QStringList& arguments, const Console& console) {
    if (arguments.contains(u"--help"_s)) {
        console.out << kUsage;
        return 0;
    }
    try {
        RunVerb(arguments, console);
        return 0;
    } catch (const UsageError& refusal) {
        console.err << u"suite-setup: "_s << platform::TextForPeople(refusal) << u'\n'
                    << u"使い方は suite-setup --help で表示されます。\n"_s;
        return 2;
    } catch (const platform::RuntimeError& error) {
        console.err << u"suite-setup: "_s << platform::TextForPeople(error) << u'\n';
        return 1;
    }
}

}  // namespace setup
