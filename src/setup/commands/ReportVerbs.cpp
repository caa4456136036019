// Part of VerbTable.h: the verbs for reports and printers.
#include "setup/commands/VerbTable.h"
#include "setup/commands/Verbs.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

Verb Printer() {
    return {.name = u"printer"_s,
            .operands = {InstallationOperand()},
            .options = {{.name = option::kToPrinter,
                         .value = {u"プリンター"_s, u"PRINTER"_s},
                         .description = {u"CUPS のプリンターに印刷する"_s, u"print to a printer of CUPS"_s}},
                        {.name = option::kToFolder,
                         .value = {u"フォルダ"_s, u"FOLDER"_s},
                         .description = {u"印刷せず、PDF をこのフォルダに置く"_s,
                                         u"write PDF files to this folder instead of printing"_s}},
                        {.name = option::kToDefault,
                         .description = {u"通常使うプリンターに印刷する（初めはこの状態）"_s,
                                         u"print to the default printer, as at first"_s}},
                        {.name = option::kReport,
                         .value = {u"帳票名"_s, u"REPORT"_s},
                         .description = {u"この帳票だけの出力先とする"_s, u"the target of this report only"_s}}},
            .summary = {u"帳票の出力先を表示する、または決める"_s, u"show or set where reports are printed"_s},
            .description = {u"共通の帳票と、利用者が持つすべての複写の出力先を決めます。出力先は一つだけ指定します。"
                            u"指定しなければ、今の出力先を表示します。"_s,
                            u"Sets where the common reports and all private copies are printed. At most one "
                            u"target can be given; without one, shows the present target."_s},
            .run = ChoosePrinter};
}

OperandDefinition ReportOperand(const QString& missing) {
    return {.name = {u"帳票名"_s, u"REPORT"_s},
            .description = missing.isEmpty()
                               ? Words{u"帳票の名前（省略時はすべて）"_s, u"name of the report; all by default"_s}
                               : Words{u"帳票の名前"_s, u"name of the report"_s},
            .missing = missing};
}

OptionDefinition FolderOption() {
    return {.name = option::kFolder,
            .value = {u"フォルダ"_s, u"FOLDER"_s},
            .description = {u"帳票名.txt を置くフォルダ（省略時は今のフォルダ）"_s,
                            u"folder of the text files; the working folder by default"_s}};
}

OptionDefinition UserOption() {
    return {.name = option::kUser,
            .value = {u"利用者"_s, u"USER"_s},
            .description = {u"この利用者が持つ帳票を扱う（省略時は共通の帳票）"_s,
                            u"work on the reports of this user; on the common ones by default"_s}};
}

Verb FormsExport() {
    return {.name = u"forms export"_s,
            .operands = {InstallationOperand(), ReportOperand({})},
            .options = {FolderOption(), UserOption()},
            .summary = {u"帳票の定義をテキストファイルに書き出す"_s, u"export report templates to text files"_s},
            .description = {u"帳票の定義を 帳票名.txt に書き出します。同じ名前のファイルは置き換えられます。"_s,
                            u"Writes templates to files named after the report, with the suffix .txt. Existing files "
                            u"are replaced."_s},
            .run = ExportTemplates};
}

Verb FormsImport() {
    return {.name = u"forms import"_s,
            .operands = {InstallationOperand(), ReportOperand({})},
            .options = {FolderOption(), UserOption()},
            .summary = {u"テキストファイルの定義を取り込む"_s, u"import report templates from text files"_s},
            .description = {u"帳票の定義を 帳票名.txt から取り込みます。帳票名を省略すると、今ある帳票のうちファイ"
                            u"ルがあるものを取り込みます。誤りがあれば何も変わりません。"_s,
                            u"Imports templates from files named after the report, with the suffix .txt; without "
                            u"a name those of all present reports. If one has an error, nothing is changed."_s},
            .run = ImportTemplates};
}

Verb FormsUse() {
    return {.name = u"forms use"_s,
            .operands = {InstallationOperand(),
                         {.name = {u"用紙"_s, u"PAPER"_s},
                          .description = {u"用紙に合わせた帳票の名前（省略時は一覧を表示）"_s,
                                          u"name of a ready-made template; lists them by default"_s}}},
            .options = {FolderOption(), UserOption()},
            .summary = {u"別の用紙の帳票に替える"_s, u"use a ready-made template for another paper"_s},
            .description = {u"封筒、はがき、宛名ラベルの帳票を、別の用紙に合わせたものに替えます。補正はそのまま"
                            u"残ります。書き換えてある定義は、先に 帳票名.txt に書き出します。"_s,
                            u"Replaces the template of envelopes, postcards or labels by a ready-made one for another "
                            u"paper. The printer's offset is kept. A template that was edited is first written to "
                            u"a file named after the report, with the suffix .txt."_s},
            .run = UseReadyTemplate};
}

Verb FormsCheck() {
    return {.name = u"forms check"_s,
            .operands = {InstallationOperand(), ReportOperand({})},
            .options = {UserOption()},
            .summary = {u"帳票の定義の誤りを表示する"_s, u"show the errors in report templates"_s},
            .description = {u"帳票の定義の誤りを行番号と理由で表示します。一つでもあれば終了コードは 1 です。"_s,
                            u"Prints each error in the templates with its line and reason. The exit status is 1 "
                            u"if there is any."_s},
            .run = CheckTemplates};
}

Verb FormsPdf() {
    return {.name = u"forms pdf"_s,
            .operands = {InstallationOperand(), ReportOperand(u"帳票の名前を指定してください。"_s)},
            .options = {{.name = option::kOut,
                         .value = {u"ファイル"_s, u"FILE"_s},
                         .description = {u"PDF のファイル（省略時は今のフォルダの 帳票名.pdf）"_s,
                                         u"the PDF file; by default named after the report, in the working folder"_s}},
                        UserOption()},
            .summary = {u"帳票を PDF にする"_s, u"render a report to a PDF file"_s},
            .description = {u"今ある作業テーブルのデータで帳票を PDF にします。"_s,
                            u"Renders a report with the rows of its work table."_s},
            .run = RenderReport};
}

}  // namespace

QList<Verb> ReportVerbs() { return {Printer(), FormsExport(), FormsImport(), FormsUse(), FormsCheck(), FormsPdf()}; }

}  // namespace setup
