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

    {Style::Heading, u"２　キーの使い方"},
    {Style::Item, u"Tab：次の項目やボタンへ移ります。Shift＋Tab：前へ戻ります。今いる場所は枠や色で分かります。"},
    {Style::Item, u"Enter：入力の項目では次へ移り、ボタンではそのボタンを押します。スペースキーでもボタンを押せます。"},
    {Style::Item, u"Ctrl：コードの項目で一覧を開きます。Shift や Alt と一緒に押したときは開きません。"},
    {Style::Item, u"Esc：一覧や複数指定の画面では「戻る」、要員台帳更新では「終了」と同じです。"},
    {Style::Item, u"Y と N：「はい」と「いいえ」の問いに答えます。"},
    {Style::Item,
     u"Ctrl＋X、Ctrl＋C、Ctrl＋V：切り取り、ｺﾋﾟｰ、貼り付けです。コードの項目では Ctrl で一覧が開くので、右クリックの"
     u"メニューを使います。"},

    {Style::Heading, u"３　日本語の入力"},
    {Style::Item,
     u"日本語入力（fcitx5 など）は、名称、カナ、住所、氏名、メモの項目で使えます。コード、区分、電話、郵便番号、EMAIL、"
     u"日付、暗証番号の項目では自動的に働かなくなるので、そのまま入力してください。入力を切り替える操作は要りません。"},
    {Style::Item, u"変換中の Enter は変換を決めるだけです。もう一度押すと次の項目へ移ります。"},
    {Style::Item, u"カナの項目では、ひらがなや全角のカタカナも、入力すると半角のカタカナになります。"},
    {Style::Item,
     u"半角の項目に全角の数字、英字、空白、ハイフン、かっこを貼り付けると、半角になります。使えない文字があったときは"
     u"取り除き、「入力できない文字を除きました。」と表示します。"},
    {Style::Item,
     u"「……文字オーバーです。」と表示されたときは、項目の長さを超えています。全角の文字は半角の 2 文字分です。"},
    {Style::Item, u"空白だけの項目をクリックすると空白が選ばれ、そのまま入力すると置き換わります。"},

    {Style::Heading, u"４　検索と画面ｸﾘｱ"},
    {Style::Item, u"「検索」を押すと、入力した条件で一覧を作り直します。条件を変えただけでは一覧は変わりません。"},
    {Style::Item, u"「画面ｸﾘｱ」を押すと、条件が初期値に戻り、一覧は空になります。"},
    {Style::Item, u"対象の件数が上限を超えると、その旨を表示し、上限までの社員を一覧にします。"},
    {Style::Item,
     u"検索や印刷などの間は「しばらくお待ちください。」と表示されます。その間のクリックやキーは受け付けず、終わってから"
     u"動くこともありません。"},

    {Style::Heading, u"５　一覧の見方"},
    {Style::Item,
     u"一覧は右のスクロールバー、マウスのホイール、タッチパッドで送ります。ホイールの一目盛りで一画面動きます。"},
    {Style::Item, u"行の左端の印を外した社員は、印刷やテキスト出力の対象になりません。印はクリックで付け外しします。"},
    {Style::Item,
     u"行の番号か、その見出しを右クリックすると、「すべて印を付ける」「すべて外す」「反転」「ここから下を外す」を"
     u"選べます。"},
    {Style::Item, u"行の項目を右クリックすると、「ｺﾋﾟｰ」でその項目を、「行をｺﾋﾟｰ」でその行を写し取れます。"},
    {Style::Item,
     u"担当者コードの色は、自分が要員台帳更新でその社員を扱ったことを示します。青緑は開いただけ、緑は保存したことが"
     u"あるという意味です。どちらでもないコードは黒です。"},
    {Style::Item, u"薄い赤の行は、要員台帳更新で作業中の社員です。"},
    {Style::Item, u"途中で切れている文字や色の付いたコードにマウスを合わせると、全文や色の意味が表示されます。"},
    {Style::Item,
     u"一覧の見出しの右に、件数と印の数、出力の結果が表示されます。当てはまる社員がいないときは"
     u"「該当する要員はいません。」と表示されます。"},

    {Style::Heading, u"６　登録内容の修正"},
    {Style::Item,
     u"行をクリックすると要員台帳更新が開き、閉じるとその行が読み直されます。開いている間、要員名簿照会は操作できません"
     u"。"},
    {Style::Item,
     u"要員台帳更新では、内容を直して「保存」を押すと書き込んで閉じます。コードの項目で Ctrl を押すと名称の"
     u"一覧が開きます。日付は西暦の 8 桁で入力し、右に年号が表示されます。"},
    {Style::Item,
     u"削除や、保存していない修正の取り消しは、確かめてから行います。Enter を続けて押しても、削除や取り消しには"
     u"なりません。"},

    {Style::Heading, u"７　プレビュと印刷"},
    {Style::Item,
     u"「プレビュ」を押すと、印刷される名簿が別の画面に表示されます。印のある社員が、一覧の順に並びます。表示したまま"
     u"要員名簿照会の操作を続けられます。"},
    {Style::Item,
     u"プレビュの画面では、PageUp と PageDown でページをめくり、Home と End で先頭と最後のページへ移ります。Ctrl＋P で"
     u"印刷、Ctrl＋S で PDF に保存、Ctrl＋「+」と Ctrl＋「-」で拡大と縮小、Esc で閉じます。"},
    {Style::Item,
     u"「印刷」は名簿を、「封筒」「はがき」「宛名ラベル」は宛名を、確かめてからすぐに印刷します。宛名にはプレビュは"
     u"ありません。通常使うプリンターか、管理者が決めたプリンターやフォルダに出力されます。"},

    {Style::Heading, u"８　印刷できないとき"},
    {Style::Item, u"「印刷情報が有りません」「出力情報が有りません」：印の付いた社員がいません。印を付けてください。"},
    {Style::Item,
     u"「通常使うプリンターが決められていません。」：コンピューターの設定で、使うプリンターを決めてください。"},
    {Style::Item,
     u"「プリンター「……」は印刷を受け付けていません。」：プリンターの電源と用紙を確かめ、止まっている印刷を"
     u"再開してください。"},
    {Style::Item,
     u"「プリンター「……」には……の用紙がありません。」：はがきや封筒を使えるプリンターを、通常使うプリンターに"
     u"してください。"},
    {Style::Item,
     u"「帳票ホストに接続できません。」：混み合っていることがあります。少し待って、もう一度印刷してください。"},
    {Style::Item,
     u"「帳票が使用できません。」「印刷サービスに接続できません。」や、そのほかのメッセージのときは、メッセージの文と"
     u"日時を控えて、管理者に連絡してください。"},
    {Style::Item,
     u"プレビュは、失敗してもメッセージを表示しません。しばらく待っても開かないときはもう一度押し、それでも開かないとき"
     u"は"
     u"管理者に連絡してください。"},
    {Style::Item,
     u"メッセージがないのに紙が出ないときは、プリンターの順番待ちを確かめてください。続けて印刷すると、同じものが何度も"
     u"出ることがあります。"},

    {Style::Heading, u"９　テキスト出力"},
    {Style::Item,
     u"「ﾃｷｽﾄ出力」を押して保存先を選ぶと、印のある社員を表計算ソフトで開けるファイル（CSV）に書き出します。同じ名前の"
     u"ファイルは、確認なしに置き換えられます。"},
    {Style::Item, u"ファイルの文字はシフトJISです。シフトJISにない文字は「?」になり、その数が画面の下に表示されます。"},
    {Style::Item,
     u"「……が使用中です。」と表示されたときは、そのファイルを表計算ソフトで開いたままにしていないか、保存先に"
     u"書き込めるかを確かめてください。"},

    {Style::Heading, u"１０　困ったとき"},
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
