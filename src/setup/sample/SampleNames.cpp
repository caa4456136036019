#include "setup/sample/SampleNames.h"

#include <QList>
#include <vector>

namespace setup {

namespace {

// Kanji, kana and latin, separated by blanks; names separated by commas.
constexpr QStringView kFamilyNames =
    u"佐藤 ｻﾄｳ sato,鈴木 ｽｽﾞｷ suzuki,高橋 ﾀｶﾊｼ takahashi,田中 ﾀﾅｶ tanaka,伊藤 ｲﾄｳ ito,渡辺 ﾜﾀﾅﾍﾞ watanabe,"
    u"山本 ﾔﾏﾓﾄ yamamoto,中村 ﾅｶﾑﾗ nakamura,小林 ｺﾊﾞﾔｼ kobayashi,加藤 ｶﾄｳ kato,吉田 ﾖｼﾀﾞ yoshida,"
    u"山田 ﾔﾏﾀﾞ yamada,佐々木 ｻｻｷ sasaki,山口 ﾔﾏｸﾞﾁ yamaguchi,松本 ﾏﾂﾓﾄ matsumoto,井上 ｲﾉｳｴ inoue,"
    u"木村 ｷﾑﾗ kimura,林 ﾊﾔｼ hayashi,斎藤 ｻｲﾄｳ saito,清水 ｼﾐｽﾞ shimizu,山崎 ﾔﾏｻﾞｷ yamazaki,森 ﾓﾘ mori,"
    u"池田 ｲｹﾀﾞ ikeda,橋本 ﾊｼﾓﾄ hashimoto,阿部 ｱﾍﾞ abe,石川 ｲｼｶﾜ ishikawa,山下 ﾔﾏｼﾀ yamashita,"
    u"中島 ﾅｶｼﾞﾏ nakajima,石井 ｲｼｲ ishii,小川 ｵｶﾞﾜ ogawa,前田 ﾏｴﾀﾞ maeda,岡田 ｵｶﾀﾞ okada,"
    u"長谷川 ﾊｾｶﾞﾜ hasegawa,藤田 ﾌｼﾞﾀ fujita,後藤 ｺﾞﾄｳ goto,近藤 ｺﾝﾄﾞｳ kondo,村上 ﾑﾗｶﾐ murakami,"
    u"遠藤 ｴﾝﾄﾞｳ endo,青木 ｱｵｷ aoki,坂本 ｻｶﾓﾄ sakamoto,斉藤 ｻｲﾄｳ saito,福田 ﾌｸﾀﾞ fukuda,太田 ｵｵﾀ ota,"
    u"西村 ﾆｼﾑﾗ nishimura,藤井 ﾌｼﾞｲ fujii,金子 ｶﾈｺ kaneko,岡本 ｵｶﾓﾄ okamoto,藤原 ﾌｼﾞﾜﾗ fujiwara,"
    u"三浦 ﾐｳﾗ miura,中野 ﾅｶﾉ nakano,原田 ﾊﾗﾀﾞ harada,松田 ﾏﾂﾀﾞ matsuda,竹内 ﾀｹｳﾁ takeuchi,小野 ｵﾉ ono,"
    u"田村 ﾀﾑﾗ tamura,中山 ﾅｶﾔﾏ nakayama,和田 ﾜﾀﾞ wada,石田 ｲｼﾀﾞ ishida,森田 ﾓﾘﾀ morita,上田 ｳｴﾀﾞ ueda,"
    u"原 ﾊﾗ hara,内田 ｳﾁﾀﾞ uchida,柴田 ｼﾊﾞﾀ shibata,酒井 ｻｶｲ sakai,宮崎 ﾐﾔｻﾞｷ miyazaki,横山 ﾖｺﾔﾏ yokoyama,"
    u"高木 ﾀｶｷﾞ takagi,安藤 ｱﾝﾄﾞｳ ando,宮本 ﾐﾔﾓﾄ miyamoto,大野 ｵｵﾉ ono,小島 ｺｼﾞﾏ kojima,"
    u"谷口 ﾀﾆｸﾞﾁ taniguchi,今井 ｲﾏｲ imai,工藤 ｸﾄﾞｳ kudo,高田 ﾀｶﾀﾞ takada,増田 ﾏｽﾀﾞ masuda,"
    u"丸山 ﾏﾙﾔﾏ maruyama,杉山 ｽｷﾞﾔﾏ sugiyama,村田 ﾑﾗﾀ murata,大塚 ｵｵﾂｶ otsuka,新井 ｱﾗｲ arai,"
    u"小山 ｺﾔﾏ koyama,平野 ﾋﾗﾉ hirano,藤本 ﾌｼﾞﾓﾄ fujimoto,河野 ｺｳﾉ kono,上野 ｳｴﾉ ueno,野口 ﾉｸﾞﾁ noguchi,"
    u"武田 ﾀｹﾀﾞ takeda,松井 ﾏﾂｲ matsui,千葉 ﾁﾊﾞ chiba,岩崎 ｲﾜｻｷ iwasaki,菅原 ｽｶﾞﾜﾗ sugawara,"
    u"木下 ｷﾉｼﾀ kinoshita,久保 ｸﾎﾞ kubo,佐野 ｻﾉ sano,野村 ﾉﾑﾗ nomura,松尾 ﾏﾂｵ matsuo,市川 ｲﾁｶﾜ ichikawa,"
    u"菊地 ｷｸﾁ kikuchi,渡邊 ﾜﾀﾅﾍﾞ watanabe,髙橋 ﾀｶﾊｼ takahashi,山﨑 ﾔﾏｻｷ yamasaki,渡部 ﾜﾀﾍﾞ watabe,"
    u"服部 ﾊｯﾄﾘ hattori,東海林 ｼｮｳｼﾞ shoji,比嘉 ﾋｶﾞ higa,勅使河原 ﾃｼｶﾞﾜﾗ teshigawara,神戸 ｶﾝﾍﾞ kambe,"
    u"北条 ﾎｳｼﾞｮｳ hojo,別府 ﾍﾞｯﾌﾟ beppu,";

constexpr QStringView kMaleNames =
    u"翔太 ｼｮｳﾀ shota,大輔 ﾀﾞｲｽｹ daisuke,健太 ｹﾝﾀ kenta,拓也 ﾀｸﾔ takuya,誠 ﾏｺﾄ makoto,隆 ﾀｶｼ takashi,"
    u"浩 ﾋﾛｼ hiroshi,修 ｵｻﾑ osamu,豊 ﾕﾀｶ yutaka,達也 ﾀﾂﾔ tatsuya,直樹 ﾅｵｷ naoki,和也 ｶｽﾞﾔ kazuya,"
    u"哲也 ﾃﾂﾔ tetsuya,雄一 ﾕｳｲﾁ yuichi,健一 ｹﾝｲﾁ kenichi,秀樹 ﾋﾃﾞｷ hideki,剛 ﾂﾖｼ tsuyoshi,学 ﾏﾅﾌﾞ manabu,"
    u"聡 ｻﾄｼ satoshi,淳 ｼﾞｭﾝ jun,亮 ﾘｮｳ ryo,大樹 ﾀﾞｲｷ daiki,悠斗 ﾕｳﾄ yuto,蓮 ﾚﾝ ren,陽斗 ﾊﾙﾄ haruto,"
    u"一郎 ｲﾁﾛｳ ichiro,次郎 ｼﾞﾛｳ jiro,三郎 ｻﾌﾞﾛｳ saburo,正 ﾀﾀﾞｼ tadashi,茂 ｼｹﾞﾙ shigeru,清 ｷﾖｼ kiyoshi,"
    u"勝 ﾏｻﾙ masaru,進 ｽｽﾑ susumu,実 ﾐﾉﾙ minoru,博之 ﾋﾛﾕｷ hiroyuki,智之 ﾄﾓﾕｷ tomoyuki,慎吾 ｼﾝｺﾞ shingo,"
    u"純平 ｼﾞｭﾝﾍﾟｲ jumpei,幸治 ｺｳｼﾞ koji,義明 ﾖｼｱｷ yoshiaki,信夫 ﾉﾌﾞｵ nobuo,圭吾 ｹｲｺﾞ keigo,"
    u"光男 ﾐﾂｵ mitsuo,俊介 ｼｭﾝｽｹ shunsuke,裕太 ﾕｳﾀ yuta,德男 ﾉﾘｵ norio,";

constexpr QStringView kFemaleNames =
    u"花子 ﾊﾅｺ hanako,美咲 ﾐｻｷ misaki,愛 ｱｲ ai,由美子 ﾕﾐｺ yumiko,陽子 ﾖｳｺ yoko,恵子 ｹｲｺ keiko,"
    u"裕子 ﾕｳｺ yuko,久美子 ｸﾐｺ kumiko,真由美 ﾏﾕﾐ mayumi,智子 ﾄﾓｺ tomoko,香織 ｶｵﾘ kaori,彩 ｱﾔ aya,"
    u"舞 ﾏｲ mai,麻衣 ﾏｲ mai,さくら ｻｸﾗ sakura,葵 ｱｵｲ aoi,結衣 ﾕｲ yui,陽菜 ﾋﾅ hina,七海 ﾅﾅﾐ nanami,"
    u"千尋 ﾁﾋﾛ chihiro,明美 ｱｹﾐ akemi,幸子 ｻﾁｺ sachiko,和子 ｶｽﾞｺ kazuko,節子 ｾﾂｺ setsuko,洋子 ﾖｳｺ yoko,"
    u"京子 ｷｮｳｺ kyoko,早苗 ｻﾅｴ sanae,典子 ﾉﾘｺ noriko,直美 ﾅｵﾐ naomi,綾子 ｱﾔｺ ayako,千春 ﾁﾊﾙ chiharu,"
    u"文子 ﾌﾐｺ fumiko,良子 ﾘｮｳｺ ryoko,純子 ｼﾞｭﾝｺ junko,友美 ﾄﾓﾐ tomomi,里奈 ﾘﾅ rina,美穂 ﾐﾎ miho,"
    u"瞳 ﾋﾄﾐ hitomi,恵美 ｴﾐ emi,のぞみ ﾉｿﾞﾐ nozomi,ゆかり ﾕｶﾘ yukari,順子 ｼﾞｭﾝｺ junko,静江 ｼｽﾞｴ shizue,"
    u"桃子 ﾓﾓｺ momoko,若葉 ﾜｶﾊﾞ wakaba,仁美 ﾋﾄﾐ hitomi,";

std::vector<SampleName> Read(QStringView table) {
    std::vector<SampleName> names;
    for (const QStringView name : table.split(u',', Qt::SkipEmptyParts)) {
        const QList<QStringView> parts = name.split(u' ');
        names.push_back({parts[0].toString(), parts[1].toString(), parts[2].toString()});
    }
    return names;
}

}  // namespace

std::span<const SampleName> FamilyNames() {
    static const std::vector<SampleName> names = Read(kFamilyNames);
    return names;
}

std::span<const SampleName> MaleNames() {
    static const std::vector<SampleName> names = Read(kMaleNames);
    return names;
}

std::span<const SampleName> FemaleNames() {
    static const std::vector<SampleName> names = Read(kFemaleNames);
    return names;
}

}  // namespace setup
