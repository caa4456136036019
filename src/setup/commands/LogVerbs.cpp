// Part of VerbTable.h: the verbs for logs, messages and the registry.
#include "setup/commands/VerbTable.h"
#include "setup/commands/Verbs.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

QList<OptionDefinition> HistoryFilters() {
    const Words time{u"日時"_s, u"TIME"_s};
    return {{.name = option::kRun,
             .value = {u"N"_s, u"N"_s},
             .description = {u"新しい方から N 番目の実行だけを表示する"_s, u"show the N-th newest run only"_s}},
            {.name = option::kUser,
             .value = {u"利用者"_s, u"USER"_s},
             .description = {u"この利用者の履歴だけを表示する"_s, u"show the rows of this user only"_s}},
            {.name = option::kErrors,
             .description = {u"エラーの行だけを、実行ごとに表示する"_s, u"show the errors only, grouped by runs"_s}},
            {.name = option::kSince,
             .value = time,
             .description = {u"この日時（2026-11-21 か \"2026-11-21 09:30\"）より後の行がある実行を表示する"_s,
                             u"show runs with a row since this time, as 2026-11-21 or \"2026-11-21 09:30\""_s}},
            {.name = option::kUntil,
             .value = time,
             .description = {u"この日時まで（日だけならその日の終わりまで）の行がある実行を表示する"_s,
                             u"show runs with a row until this time; without a time until the end of the day"_s}}};
}

Verb History() {
    return {
        .name = u"history"_s,
        .operands = {InstallationOperand()},
        .options = HistoryFilters() +
                   QList<OptionDefinition>{
                       {.name = option::kShort,
                        .description = {u"一つの実行を一行にして、全利用者の実行を一つの表で表示する"_s,
                                        u"show the runs of all users in one table, a line for each run"_s}},
                       {.name = option::kCsv,
                        .value = {u"ファイル"_s, u"FILE"_s},
                        .description = {u"表示せずに、CSV ファイル（UTF-8）に書き込む"_s,
                                        u"write a CSV file (UTF-8) instead"_s}},
                       {.name = option::kFollow,
                        .description = {u"中断されるまで、追加される行を待って表示する"_s,
                                        u"wait for further rows until interrupted"_s}}},
        .summary = {u"稼動履歴を表示する"_s, u"show the run history"_s},
        .description = {u"プログラムの稼動履歴を、実行ごとにまとめて古い順に表示します。SQL はそのまま実行できる形で次"
                        u"の行に表示します。"_s,
                        u"Shows the run history of the programs, grouped by runs, newest last. SQL statements are on "
                        u"separate lines, as they can be run."_s},
        .run = ShowHistory};
}

Verb Links() {
    return {.name = u"links"_s,
            .operands = {InstallationOperand()},
            .options = {{.name = option::kUser,
                         .value = {u"利用者"_s, u"USER"_s},
                         .description = {u"この利用者のものだけを表示する"_s, u"show those of this user only"_s}}},
            .summary = {u"プログラム間で受け取りを待っている連携情報を表示する"_s,
                        u"show pending messages between the programs"_s},
            .description = {u"プログラム間で受け取りを待っている連携情報を、経過した時間とともに古い順に表示します。"_s,
                            u"Shows the pending messages between the programs with their age, oldest first."_s},
            .run = ShowLinks};
}

OperandDefinition KeyOperand(const QString& missing) {
    return {.name = {u"キー"_s, u"KEY"_s},
            .description = {u"HKLM（コンピューター）または HKCU（利用者）で始まるキー"_s,
                            u"a key that begins with HKLM for the machine or HKCU for the user"_s},
            .missing = missing};
}

OperandDefinition NameOperand() {
    return {.name = {u"名前"_s, u"NAME"_s},
            .description = {u"値の名前"_s, u"name of the value"_s},
            .missing = u"値の名前を指定してください。"_s,
            .mayBeEmpty = true};
}

Verb RegistryList() {
    return {.name = u"registry list"_s,
            .operands = {KeyOperand({})},
            .summary = {u"レジストリの値を表示する"_s, u"show the values in the registry"_s},
            .description = {u"レジストリのキーとその下の値を表示します。キーを省略するとすべての値を表示します。"_s,
                            u"Shows the values of a registry key and of the keys below it; all values if no key "
                            u"is given."_s},
            .run = ListRegistry};
}

Verb RegistryGet() {
    return {.name = u"registry get"_s,
            .operands = {KeyOperand(u"キーを指定してください。"_s), NameOperand()},
            .summary = {u"レジストリの値を一つ表示する"_s, u"show one value in the registry"_s},
            .description = {u"レジストリの値を一つ表示します。値がなければ終了コードは 1 です。"_s,
                            u"Shows one value in the registry. The exit status is 1 if there is no such value."_s},
            .run = GetRegistryValue};
}

Verb RegistrySet() {
    return {.name = u"registry set"_s,
            .operands = {KeyOperand(u"キーを指定してください。"_s),
                         NameOperand(),
                         {.name = {u"値"_s, u"VALUE"_s},
                          .description = {u"書く値"_s, u"the value to write"_s},
                          .missing = u"値を指定してください。"_s,
                          .mayBeEmpty = true}},
            .options = {{.name = option::kNumber,
                         .description = {u"値を数値として書く（0 から 4294967295）"_s,
                                         u"write the value as a number, 0 to 4294967295"_s}}},
            .summary = {u"レジストリに値を一つ書く"_s, u"write one value to the registry"_s},
            .description = {u"レジストリに値を一つ書きます。キーがなければ作り、値があれば置き換えます。"_s,
                            u"Writes one value to the registry. Creates the key if there is none, and replaces an "
                            u"existing value."_s},
            .run = SetRegistryValue};
}

}  // namespace

QList<Verb> LogVerbs() { return {History(), Links(), RegistryList(), RegistryGet(), RegistrySet()}; }

}  // namespace setup
