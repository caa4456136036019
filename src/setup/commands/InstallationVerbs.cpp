// Part of VerbTable.h: the verbs that create and maintain installations.
#include "setup/commands/VerbTable.h"
#include "setup/commands/Verbs.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

OptionDefinition MenuOption() {
    return {.name = option::kMenu,
            .description = {u"インストールをデスクトップのメニューに登録する（root では全員の、ほかでは実行者の"
                            u"メニューに入る）"_s,
                            u"add the installation to the desktop menu, of all users if run by root, otherwise of the "
                            u"user who runs it"_s}};
}

QList<OptionDefinition> SampleOptions() {
    return {{.name = option::kStaff,
             .value = {u"N"_s, u"N"_s},
             .description = {u"見本の要員の人数（1 から 99999、省略時は 300）"_s,
                             u"number of people in the sample, 1 to 99999; 300 by default"_s}},
            {.name = option::kSeed,
             .value = {u"N"_s, u"N"_s},
             .description = {u"見本の種（同じ種からは同じデータができる、省略時は 1）"_s,
                             u"seed of the sample; the same seed gives the same people; 1 by default"_s}}};
}

QList<OptionDefinition> KindOptions() {
    return {{.name = option::kKind,
             .value = {u"accdb|mdb"_s, u"accdb|mdb"_s},
             .description = {u"データベースファイルの種類（省略時は accdb）"_s,
                             u"suffix of the database files; accdb by default"_s}},
            {.name = option::kInstallKind,
             .value = {u"0|1"_s, u"0|1"_s},
             .description = {u"0 では構成と帳票を全員で共有し、1 では利用者ごとに複写を持つ（省略時は 0）"_s,
                             u"0: all users share configuration and reports, 1: each user has private copies; 0 by "
                             u"default"_s}}};
}

Verb Init() {
    return {
        .name = u"init"_s,
        .operands = {InstallationOperand()},
        .options =
            SampleOptions() + KindOptions() +
            QList<OptionDefinition>{
                {.name = option::kPin,
                 .description = {u"暗証番号を尋ねる会社にして、権限の異なる要員 4 名を暗証番号とともに表示する"_s,
                                 u"make a company that asks for PINs, and print four people with different "
                                 u"rights and their PINs"_s}},
                {.name = option::kReplace,
                 .description = {u"既にあるインストールを作り直す（中のデータは失われる）"_s,
                                 u"replace an existing installation; its data are lost"_s}},
                MenuOption()},
        .summary = {u"インストールを作る"_s, u"create an installation"_s},
        .description =
            {u"すべてのテーブルと見本の要員を持つインストールを作ります。フォルダは空か、まだないものを指定します。"_s,
             u"Creates an installation with all tables and a sample staff. The folder must be empty or not "
             u"exist."_s},
        .run = CreateInstallation};
}

Verb Upgrade() {
    return {.name = u"upgrade"_s,
            .operands = {InstallationOperand()},
            .options = {OdbcOption({u"サーバーの一般データベースにも、表の所有者として加える"_s,
                                    u"also upgrade the general database on a server, as the owner of its tables"_s}),
                        MenuOption()},
            .summary = {u"インストールを新しい版にする"_s, u"upgrade an installation to this version"_s},
            .description =
                {u"プログラムを新しい版に替え、グループと権限を直し、増えたテーブル、列、索引、帳票を加えます。"
                 u"データには触れません。新しい版の suite-setup で実行します。繰り返し実行できます。"_s,
                 u"Replaces the programs, corrects group and modes, and adds the tables, columns, indexes "
                 u"and reports that the new version needs. Changes no row. Run it with the suite-setup of the new "
                 u"version. May be repeated."_s},
            .run = UpgradeInstallation};
}

Verb Check() {
    return {
        .name = u"check"_s,
        .operands = {InstallationOperand()},
        .options = {{.name = option::kUser,
                     .value = {u"利用者"_s, u"USER"_s},
                     .description = {u"利用者の権限で、その利用者の複写だけを調べる（省略時は実行者の権限で、"
                                     u"読めるすべての複写）"_s,
                                     u"check with the rights of USER and only that user's copies; by default with "
                                     u"the rights of the user who runs it, and all copies that can be read"_s}},
                    {.name = option::kAllUsers,
                     .description = {u"すべての利用者の複写を、それぞれの利用者の権限で調べる（読めない複写があれば"
                                     u"何も調べない）"_s,
                                     u"check the copies of all users, with the rights of each; if one can't be read, "
                                     u"nothing is checked"_s}}},
        .summary = {u"問題を、影響と対処とともに表示する"_s, u"show problems, their effects and what to do"_s},
        .description = {u"インストールの中身を調べ、問題を、どこにあるか、利用者に何が起きるか、どうすれば直るかととも"
                        u"に表示します。何も書き込みません。終了コードは、問題がなければ 0、あれば 1、調べられなければ "
                        u"2 です。"_s,
                        u"Looks into an installation and prints each problem with its place, its effect on a clerk and "
                        u"what to do. Writes nothing. The exit status is 0 without problems, 1 with problems, 2 if "
                        u"the check could not run."_s},
        .run = CheckInstallation};
}

QList<OptionDefinition> RowOptions() {
    return {{.name = option::kOffice,
             .value = {u"事業所"_s, u"OFFICE"_s},
             .description = {u"運用事業所をこのコードにする（000 は全社）"_s,
                             u"set the operating office; 000 is the whole company"_s}},
            {.name = option::kInstallKind,
             .value = {u"0|1"_s, u"0|1"_s},
             .description = {u"インストール区分を 0（全員で共有）か 1（利用者ごとに複写）にする"_s,
                             u"set the install kind: 0 shared files, 1 private copies"_s}},
            {.name = option::kResetClasses,
             .description = {u"1 桁の数字でない区分を取り除き、その要員の区分を 0 にする"_s,
                             u"remove classes that are no digit; their staff get the class 0"_s}},
            {.name = option::kFutureRows,
             .description = {u"この時計より先の日付の稼動履歴と連携情報を消す"_s,
                             u"delete history rows and messages from the future"_s}}};
}

Verb RepairVerb() {
    return {
        .name = u"repair"_s,
        .operands = {InstallationOperand()},
        .options = RowOptions() +
                   QList<OptionDefinition>{
                       {.name = option::kReport,
                        .value = {u"帳票名"_s, u"REPORT"_s},
                        .description = {u"この帳票を標準のものに戻す（ほかは何もしない）"_s,
                                        u"only replace this template by its standard form"_s}},
                       {.name = option::kUser,
                        .value = {u"利用者"_s, u"USER"_s},
                        .description = {u"--report で、この利用者の帳票を戻す（省略時は共通の帳票）"_s,
                                        u"with --report: the template of this user; by default the common one"_s}},
                       OdbcOption({u"サーバーの行を、表に書き込める利用者として直す"_s,
                                   u"an account that may write the general database on the server"_s})},
        .summary = {u"check が見つけた足りない行やファイルを補う"_s,
                    u"add the rows and files that check finds missing"_s},
        .description = {u"プログラムに必要な行、ファイル、フォルダのうち足りないものを補い、壊れた索引を作り直します。"
                        u"足りているものは変えません。check が示すとおりに実行してください。繰り返し実行できます。"_s,
                        u"Adds the rows, files and folders that the programs need and that are missing, and rebuilds "
                        u"damaged indexes. What is intact stays unchanged. Run it as check says. May be repeated."_s},
        .run = RepairInstallation};
}

Verb Move() {
    return {.name = u"move"_s,
            .operands = {InstallationOperand()},
            .summary = {u"複写や移動をしたインストールに自分のファイルを使わせる"_s,
                        u"make a copied or moved installation use its own files"_s},
            .description = {u"複写や移動をしたインストールの、一般データベースの定義と帳票のリンクを、このフォルダ"
                            u"のファイルに向けます。サーバーにある一般データベースと、フォルダの外にあるファイルは"
                            u"そのままです。"_s,
                            u"After an installation was copied or moved, points the definition of the general "
                            u"database and the links of the reports to the files in this folder. A general "
                            u"database on a server or outside the folder is left unchanged."_s},
            .run = MoveInstallation};
}

}  // namespace

QList<Verb> InstallationVerbs() { return {Init(), Upgrade(), Check(), RepairVerb(), Move()}; }

}  // namespace setup
