// Part of VerbTable.h: the verbs for the general database.
#include "setup/commands/VerbTable.h"
#include "setup/commands/Verbs.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

OptionDefinition Required(OptionDefinition option) {
    option.required = true;
    return option;
}

Verb ServerInit() {
    return {.name = u"server-init"_s,
            .options = {Required(OdbcOption(
                            {u"表を作る利用者とサーバー"_s, u"the server, and the account that creates the tables"_s})),
                        {.name = option::kFrom,
                         .value = {u"フォルダ"_s, u"FOLDER"_s},
                         .description = {u"このインストールの一般データベースの行を複写する"_s,
                                         u"copy the rows of the general database of this installation"_s}},
                        {.name = option::kAddMissing,
                         .description = {u"既にある表に、足りない表、列、索引、関数だけを加える（データはそのまま）。"
                                         u"--from とは一緒に指定できない"_s,
                                         u"add only the missing tables, columns, indexes and functions to an existing "
                                         u"database, and change no row; not together with --from"_s}}},
            .summary = {u"サーバーに一般データベースの表を作る"_s,
                        u"create the tables of the general database on a server"_s},
            .description = {u"PostgreSQL または MariaDB のサーバーに一般データベースの表を作り、インストールから複写"
                            u"します。失敗したときは、作った表を消します。"_s,
                            u"Creates the tables of the general database on a PostgreSQL or MariaDB server and copies "
                            u"those of an installation there. If it fails, the new tables are dropped."_s},
            .run = InitServer};
}

Verb UseServerVerb() {
    return {.name = u"use-server"_s,
            .operands = {InstallationOperand()},
            .options = {Required(OdbcOption(
                {u"プログラムが使う利用者とサーバー"_s, u"the server, and the account that the programs use"_s}))},
            .summary = {u"インストールの一般データベースをサーバーのものにする"_s,
                        u"make an installation use the general database on a server"_s},
            .description = {u"インストールの一般データベースをサーバーのものにします。表、列、関数、照合順序が揃っ"
                            u"ていることを確かめてから、定義を書き換えます。接続文字列のパスワードは定義に保存され"
                            u"ます。"_s,
                            u"Makes an installation use the general database on a server, after checking that "
                            u"tables, columns, functions and collations are complete. The password of the "
                            u"connection string is stored in the definition."_s},
            .run = UseServer};
}

Verb Import() {
    return {
        .name = u"import"_s,
        .operands = {InstallationOperand(),
                     {.name = {u"ファイル"_s, u"FILE"_s},
                      .description = {u"Jet または ACE 形式のデータベース"_s, u"database in the format Jet or ACE"_s},
                      .missing = u"取り込むファイルを指定してください。"_s}},
        .summary = {u".mdb または .accdb の一般データベースを取り込む"_s,
                    u"import a general database from an .mdb or .accdb file"_s},
        .description =
            {u"本物の .mdb または .accdb のファイルを読み、インストールの一般データベースの中身と入れ替えます。"
             u"失敗したときは何も変わりません。"_s,
             u"Reads a real .mdb or .accdb file and replaces the rows of the installation's general "
             u"database. If it fails, nothing is changed."_s},
        .run = ImportGeneral};
}

Verb SealPinsVerb() {
    return {
        .name = u"seal-pins"_s,
        .operands = {InstallationOperand()},
        .options = {OdbcOption({u"サーバーの暗証番号を、表に書き込める利用者として封じる"_s,
                                u"an account that may write the PINs on the server"_s})},
        .summary = {u"そのまま保存されている暗証番号を鍵で封じる"_s, u"encrypt PINs that are stored in clear text"_s},
        .description = {u"そのまま保存されている暗証番号を鍵で封じます。鍵ファイル conf/pin.key がなければ作り"
                        u"ます。繰り返し実行できます。"_s,
                        u"Encrypts PINs that are stored in clear text. Creates the key file conf/pin.key if "
                        u"there is none. May be repeated."_s},
        .run = SealPins};
}

}  // namespace

QList<Verb> DatabaseVerbs() { return {Import(), ServerInit(), UseServerVerb(), SealPinsVerb()}; }

}  // namespace setup
