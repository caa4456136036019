// Part of Sample.h: the clerk's manual.
#include <QList>

#include "platform/AtomicFile.h"
#include "platform/RuntimeError.h"
#include "setup/sample/Sample.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

enum class Style { Title, Heading, Text, Item };

struct Paragraph {
    Style style;
    const char16_t* text;
};

constexpr Paragraph kParagraphs[] = {
    {Style::Title, u"要員名簿照会　操作の手引き"},
    {Style::Text,
     u"要員名簿照会は、要員台帳に登録された社員を条件で絞り込み、一覧に表示するプログラムです。起動すると、"
     u"在籍している社員の一覧がすぐに表示されます。"},
    {Style::Heading, u"１　条件の入力"},
    {Style::Item,
     u"部門、セクション、役職、担当者はコードの範囲で指定します。桁数に満たないコードには先頭にゼロが"
     u"補われます。開始が終了より大きいときは、後から入力した値に他方が揃います。"},
    {Style::Item,
     u"コードの項目で Ctrl キーを押すかダブルクリックすると、一覧からコードを選べます。Enter またはクリックで"
     u"決まり、Esc で元に戻ります。"},
    {Style::Item, u"部門とセクションの一覧で稼動状況を変えたときは、「条件ｸﾘｱ」を押すと一覧が変わります。"},
    {Style::Item,
     u"名称、カナ、住所、郵便番号は文字の一部で検索します。大文字と小文字、全角と半角、ひらがなと"
     u"カタカナは区別しません。"},
    {Style::Item,
     u"「名称複数指定」などのボタンでは、検索する文字を１０行まで指定できます。いずれかの行に当てはまる社員を、"
     u"「絞込み」にチェックを付けるとすべての行に当てはまる社員を検索します。指定中はボタンが緑色になり、"
     u"その項目は入力できません。すべての行を空にして戻るか、「画面ｸﾘｱ」を押すと元に戻ります。"},
    {Style::Item, u"電話番号は「電話複数指定」から検索します。"},
    {Style::Item,
     u"「部門コード範囲」などのボタンでは、範囲の代わりに、一覧の行にチェックを付けて一件ずつ選びます。チェックは"
     u"クリックかスペースキーで付き、Shift や Ctrl で選んだ複数の行には「複数選択」でまとめて付きます。"
     u"「選択ｸﾘｱ」ですべて外れます。担当者の一覧が５０件までのときは「全て選択」も使えます。一覧を検索し直すと"
     u"チェックは外れます。指定中はボタンが緑色になり、範囲は入力できません。"},
    {Style::Item, u"在籍区分と社員区分は番号で入力するか、右の一覧から選びます。「全て」を選ぶと条件になりません。"},
    {Style::Item, u"表示順区分で、担当者コード、所属コード、名称、カナ、郵便番号のいずれかの順を選びます。"},
    {Style::Heading, u"２　検索と画面ｸﾘｱ"},
    {Style::Item, u"「検索」を押すと、入力した条件で一覧を作り直します。条件を変えただけでは一覧は変わりません。"},
    {Style::Item, u"「画面ｸﾘｱ」を押すと、条件が初期値に戻り、一覧は空になります。"},
    {Style::Item, u"対象の件数が上限を超えると、その旨を表示し、上限までの社員を一覧にします。"},
    {Style::Heading, u"３　一覧の見方"},
    {Style::Item, u"一覧は右のスクロールバー、またはマウスのホイールで送ります。"},
    {Style::Item, u"行の左端のチェックを外した社員は、印刷やテキスト出力の対象になりません。"},
    {Style::Item, u"行をクリックすると要員台帳更新が開き、閉じるとその行が読み直されます。"},
    {Style::Item,
     u"要員台帳更新では、内容を直して「保存」を押すと書き込んで閉じます。コードの項目で Ctrl を押すと名称の"
     u"一覧が開きます。日付は西暦の 8 桁で入力し、右に年号が表示されます。"},
    {Style::Heading, u"４　テキスト出力"},
    {Style::Item,
     u"「ﾃｷｽﾄ出力」を押して保存先を選ぶと、一覧の社員を表計算ソフトで開けるファイル（CSV）に書き出します。同じ名前の"
     u"ファイルは、確認なしに置き換えられます。"},
    {Style::Item, u"ファイルの文字はシフトJISです。シフトJISにない文字は「?」になり、その数が画面の下に表示されます。"},
    {Style::Item,
     u"「……が使用中です。」と表示されたときは、そのファイルを表計算ソフトで開いたままにしていないか、保存先に"
     u"書き込めるかを確かめてください。"},
    {Style::Heading, u"５　困ったとき"},
    {Style::Item,
     u"「データベースが使用できません。」と表示されて終了するときは、ネットワークの接続を確かめてから、"
     u"管理者に連絡してください。"},
    {Style::Item,
     u"探している社員が表示されないときは、在籍区分を「全て」にし、範囲を初期値に戻して検索してください。"},
    {Style::Item,
     u"テキスト出力の途中で「しばらくお待ちください。」が消えず、操作できなくなったときは、保存先の空き容量を確かめ、"
     u"要員名簿照会の画面を右上の×で閉じて、起動し直してください。"},
    {Style::Item, u"動作の記録は管理者が履歴で確かめることができます。日時を控えておいてください。"},
};

QByteArray Escaped(const QString& text) {
    QByteArray rtf;
    for (const QChar unit : text) {
        if (unit == u'\\' || unit == u'{' || unit == u'}') rtf += '\\';
        if (unit.unicode() < 0x80)
            rtf += static_cast<char>(unit.unicode());
        else
            // RTF takes a signed 16-bit number; readers without Unicode show the "?" instead.
            rtf += "\\u" + QByteArray::number(static_cast<qint16>(unit.unicode())) + '?';
    }
    return rtf;
}

QByteArray Opening(Style style) {
    switch (style) {
        case Style::Title:
            return "\\pard\\qc\\sa240\\f1\\fs36\\b ";
        case Style::Heading:
            return "\\pard\\sb240\\sa80\\f1\\fs26\\b ";
        case Style::Text:
            return "\\pard\\sa80\\f0\\fs22\\b0 ";
        case Style::Item:
            break;
    }
    return "\\pard\\li360\\fi-240\\sa80\\f0\\fs22\\b0 " + Escaped(u"・"_s);
}

}  // namespace

QByteArray ManualDocument() {
    QByteArray rtf = "{\\rtf1\\ansi\\ansicpg932\\deff0\\uc1{\\fonttbl{\\f0\\froman\\fcharset128 " +
                     Escaped(u"ＭＳ 明朝"_s) + ";}{\\f1\\fswiss\\fcharset128 " + Escaped(u"ＭＳ ゴシック"_s) +
                     ";}}\n\\paperw11906\\paperh16838\\margl1701\\margr1701\\margt1701\\margb1701\n";
    for (const Paragraph& paragraph : kParagraphs)
        rtf += Opening(paragraph.style) + Escaped(QString::fromUtf16(paragraph.text)) + "\\par\n";
    return rtf + "}\n";
}

void WriteManual(const QString& path) {
    QString error;
    if (!platform::ReplaceFile(path, ManualDocument(), error))
        throw platform::RuntimeError(kWorkFailed, u"%1 に書き込めません。%2"_s.arg(path, error));
}

}  // namespace setup
