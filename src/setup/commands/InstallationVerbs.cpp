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
    return {.name = u"check"_s,
            .operands = {InstallationOperand()},
            .options = {{.name = option::kUser,
                         .value = {u"利用者"_s, u"USER"_s},
                         .description = {u"利用者の権限で、その利用者の複写だけを調べる（省略時は実行者の権限で、"
                                         u"すべての複写）"_s,
                                         u"check with the rights of USER and only that user's copies; by default with "
                                         u"the rights of the user who runs it, and all copies"_s}}},
            .summary = {u"足りないもの、読めないもの、リンクや信頼の誤りを表示する"_s,
                        u"show what is missing, unreadable, linked to other files or not trusted"_s},
            .description = {u"インストールを調べ、足りないもの、読めないもの、リンクや信頼の誤りなどの問題を一行ず"
                            u"つ表示します。一つでもあれば終了コードは 1 です。"_s,
                            u"Prints one line for each problem of an installation: files that are missing or "
                            u"unreadable, links to other files, folders that are not trusted. The exit status is "
                            u"1 if there is any."_s},
            .run = CheckInstallation};
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

QList<Verb> InstallationVerbs() { return {Init(), Upgrade(), Check(), Move()}; }

}  // namespace setup
