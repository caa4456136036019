#include "setup/sample/SampleData.h"

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

constexpr SamplePlace kPlaces[] = {
    {u"060-0001", u"北海道札幌市中央区", u"北一条西", u"011"},
    {u"070-0031", u"北海道旭川市", u"一条通", u"0166"},
    {u"040-0063", u"北海道函館市", u"若松町", u"0138"},
    {u"030-0801", u"青森県青森市", u"新町", u"017"},
    {u"020-0034", u"岩手県盛岡市", u"盛岡駅前通", u"019"},
    {u"980-0021", u"宮城県仙台市青葉区", u"中央", u"022"},
    {u"010-0001", u"秋田県秋田市", u"中通", u"018"},
    {u"990-0039", u"山形県山形市", u"香澄町", u"023"},
    {u"960-8031", u"福島県福島市", u"栄町", u"024"},
    {u"310-0015", u"茨城県水戸市", u"宮町", u"029"},
    {u"320-0026", u"栃木県宇都宮市", u"馬場通り", u"028"},
    {u"371-0024", u"群馬県前橋市", u"表町", u"027"},
    {u"330-0854", u"埼玉県さいたま市大宮区", u"桜木町", u"048"},
    {u"332-0012", u"埼玉県川口市", u"本町", u"048"},
    {u"260-0015", u"千葉県千葉市中央区", u"富士見", u"043"},
    {u"273-0005", u"千葉県船橋市", u"本町", u"047"},
    {u"100-0005", u"東京都千代田区", u"丸の内", u"03"},
    {u"103-0027", u"東京都中央区", u"日本橋", u"03"},
    {u"105-0004", u"東京都港区", u"新橋", u"03"},
    {u"110-0005", u"東京都台東区", u"上野", u"03"},
    {u"113-0033", u"東京都文京区", u"本郷", u"03"},
    {u"130-0013", u"東京都墨田区", u"錦糸", u"03"},
    {u"135-0061", u"東京都江東区", u"豊洲", u"03"},
    {u"140-0001", u"東京都品川区", u"北品川", u"03"},
    {u"144-0052", u"東京都大田区", u"蒲田", u"03"},
    {u"150-0002", u"東京都渋谷区", u"渋谷", u"03"},
    {u"154-0004", u"東京都世田谷区", u"太子堂", u"03"},
    {u"160-0022", u"東京都新宿区", u"新宿", u"03"},
    {u"164-0001", u"東京都中野区", u"中野", u"03"},
    {u"166-0003", u"東京都杉並区", u"高円寺南", u"03"},
    {u"171-0022", u"東京都豊島区", u"南池袋", u"03"},
    {u"180-0004", u"東京都武蔵野市", u"吉祥寺本町", u"0422"},
    {u"190-0012", u"東京都立川市", u"曙町", u"042"},
    {u"192-0083", u"東京都八王子市", u"旭町", u"042"},
    {u"220-0011", u"神奈川県横浜市西区", u"高島", u"045"},
    {u"231-0023", u"神奈川県横浜市中区", u"山下町", u"045"},
    {u"210-0007", u"神奈川県川崎市川崎区", u"駅前本町", u"044"},
    {u"950-0087", u"新潟県新潟市中央区", u"東大通", u"025"},
    {u"930-0003", u"富山県富山市", u"桜町", u"076"},
    {u"920-0853", u"石川県金沢市", u"本町", u"076"},
    {u"910-0006", u"福井県福井市", u"中央", u"0776"},
    {u"400-0031", u"山梨県甲府市", u"丸の内", u"055"},
    {u"380-0824", u"長野県長野市", u"南石堂町", u"026"},
    {u"500-8833", u"岐阜県岐阜市", u"神田町", u"058"},
    {u"420-0851", u"静岡県静岡市葵区", u"黒金町", u"054"},
    {u"450-0002", u"愛知県名古屋市中村区", u"名駅", u"052"},
    {u"460-0008", u"愛知県名古屋市中区", u"栄", u"052"},
    {u"440-0075", u"愛知県豊橋市", u"花田町", u"0532"},
    {u"514-0009", u"三重県津市", u"羽所町", u"059"},
    {u"520-0051", u"滋賀県大津市", u"梅林", u"077"},
    {u"601-8003", u"京都府京都市南区", u"東九条西山王町", u"075"},
    {u"530-0001", u"大阪府大阪市北区", u"梅田", u"06"},
    {u"541-0041", u"大阪府大阪市中央区", u"北浜", u"06"},
    {u"556-0011", u"大阪府大阪市浪速区", u"難波中", u"06"},
    {u"590-0077", u"大阪府堺市堺区", u"中瓦町", u"072"},
    {u"650-0021", u"兵庫県神戸市中央区", u"三宮町", u"078"},
    {u"670-0927", u"兵庫県姫路市", u"駅前町", u"079"},
    {u"630-8215", u"奈良県奈良市", u"東向中町", u"0742"},
    {u"640-8203", u"和歌山県和歌山市", u"東蔵前丁", u"073"},
    {u"680-0834", u"鳥取県鳥取市", u"永楽温泉町", u"0857"},
    {u"690-0003", u"島根県松江市", u"朝日町", u"0852"},
    {u"700-0024", u"岡山県岡山市北区", u"駅元町", u"086"},
    {u"730-0011", u"広島県広島市中区", u"基町", u"082"},
    {u"732-0822", u"広島県広島市南区", u"松原町", u"082"},
    {u"753-0074", u"山口県山口市", u"中央", u"083"},
    {u"770-0831", u"徳島県徳島市", u"寺島本町西", u"088"},
    {u"760-0019", u"香川県高松市", u"サンポート", u"087"},
    {u"790-0012", u"愛媛県松山市", u"湊町", u"089"},
    {u"780-0834", u"高知県高知市", u"堺町", u"088"},
    {u"810-0001", u"福岡県福岡市中央区", u"天神", u"092"},
    {u"812-0012", u"福岡県福岡市博多区", u"博多駅中央街", u"092"},
    {u"802-0002", u"福岡県北九州市小倉北区", u"京町", u"093"},
    {u"840-0801", u"佐賀県佐賀市", u"駅前中央", u"0952"},
    {u"850-0057", u"長崎県長崎市", u"大黒町", u"095"},
    {u"860-0047", u"熊本県熊本市西区", u"春日", u"096"},
    {u"870-0026", u"大分県大分市", u"金池町", u"097"},
    {u"880-0811", u"宮崎県宮崎市", u"錦町", u"0985"},
    {u"890-0053", u"鹿児島県鹿児島市", u"中央町", u"099"},
    {u"900-0015", u"沖縄県那覇市", u"久茂地", u"098"},
};

constexpr const char16_t* kBuildings[] = {
    u"グリーンハイツ",       u"コーポ桜",         u"メゾン青葉",     u"パークサイド本町", u"ひかり荘",
    u"サンライズマンション", u"グランドール駅前", u"第二みどりビル", u"県営住宅",
};

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

std::span<const SamplePlace> SamplePlaces() { return kPlaces; }
std::span<const char16_t* const> SampleBuildings() { return kBuildings; }

}  // namespace setup
