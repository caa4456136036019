// Part of Sample.h: master and class tables.
#include "setup/sample/Sample.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

struct MasterTable {
    QString table;
    QString columns;
    QStringList lines;
};

constexpr const char16_t* kOfficeCodes[] = {u"001", u"002", u"003", u"004", u"005", u"006"};

constexpr SampleSection kSections[] = {
    {u"010", u"011"}, {u"010", u"012"}, {u"020", u"021"}, {u"020", u"022"}, {u"030", u"031"}, {u"030", u"032"},
    {u"040", u"041"}, {u"040", u"042"}, {u"050", u"051"}, {u"050", u"052"}, {u"060", u"061"}, {u"070", u"071"},
    {u"070", u"072"}, {u"080", u"081"}, {u"090", u"091"}, {u"100", u"101"}, {u"100", u"102"},
};

// The programs use the row number of a class in its table as its value, so the values must be 0, 1, 2, ...
QList<MasterTable> Classes() {
    const QString columns = u"区分 名称"_s;
    return {
        {u"K性別区分"_s, columns, {u"0|男"_s, u"1|女"_s}},
        {u"K在籍区分"_s, columns, {u"0|在籍"_s, u"1|退職"_s}},
        {u"K社員区分"_s,
         columns,
         {u"0|正社員"_s, u"1|契約社員"_s, u"2|嘱託"_s, u"3|パート"_s, u"4|アルバイト"_s, u"5|派遣社員"_s}},
        {u"K稼動状況区分"_s, columns, {u"0|停止"_s, u"1|稼動"_s}},
        {u"K年号区分"_s, u"開始日付 名称"_s, StandardEras()},
    };
}

QList<MasterTable> Organisation() {
    const QString columns = u"コード 名称 稼動状況区分"_s;
    return {
        {u"M部門"_s,
         columns,
         {u"010|総務部|1"_s, u"020|人事部|1"_s, u"030|経理部|1"_s, u"040|営業第一部|1"_s, u"050|営業第二部|1"_s,
          u"060|購買部|1"_s, u"070|製造部|1"_s, u"080|品質保証部|1"_s, u"090|物流部|1"_s, u"100|情報システム部|1"_s,
          u"110|通信販売部|0"_s, u"120|新規事業準備室|0"_s}},
        {u"Mセクション"_s,
         columns,
         {u"011|総務課|1"_s, u"012|庶務課|1"_s, u"021|人事課|1"_s, u"022|給与課|1"_s, u"031|経理課|1"_s,
          u"032|財務課|1"_s, u"041|営業一課|1"_s, u"042|営業二課|1"_s, u"051|営業三課|1"_s, u"052|営業四課|1"_s,
          u"061|購買課|1"_s, u"071|製造一課|1"_s, u"072|製造二課|1"_s, u"081|検査課|1"_s, u"091|配送課|1"_s,
          u"101|開発課|1"_s, u"102|運用課|1"_s, u"111|受注センター|0"_s, u"121|企画係|0"_s}},
        {u"M役職"_s,
         u"コード 名称"_s,
         {u"10|取締役"_s, u"20|部長"_s, u"25|次長"_s, u"30|課長"_s, u"40|係長"_s, u"50|主任"_s, u"90|一般"_s}},
    };
}

// %1: whether a PIN is required.
QList<MasterTable> Company() {
    return {
        {u"Mユーザ"_s,
         u"ID 名称 郵便番号 住所A 住所B 住所C 代表者名 電話 FAX EMAIL 会社ロゴfile 銀行口座A 決算月 決算日 締日区分 "
         u"締日"
         u" 写真フォルダ テキスト出力フォルダ 明細保存月数 統計保存年数 伝票番号管理区分 暗証番号有無 特権暗証番号"
         u" 更新実行区分 システム特権暗証番号 登録日付 更新日付"_s,
         {u"0001|見本商事株式会社|100-0005|東京都千代田区|丸の内９－８－７|見本ビル１０階|佐藤　一郎|03-5555-0100|"
          u"03-5555-0101|info@example.co.jp||見本銀行　本店　普通　１２３４５６７|3|31|0|99|||24|5|0|%1|TOKKEN01|0|"
          u"SYSTEM01|20050401 090000|20260401 083000"_s}},
        {u"M事業所"_s,
         u"コード 名称 郵便番号 住所A 住所B 住所C 代表者名 電話 FAX 登録番号 EMAIL テキスト出力フォルダ 地区コード"
         u" 暗証番号有無 特権暗証番号 更新実行区分"_s,
         {u"000|全社|100-0005|東京都千代田区|丸の内９－８－７|見本ビル１０階|佐藤　一郎|03-5555-0100|03-5555-0101||"
          u"info@example.co.jp||00|%1|TOKKEN01|0"_s,
          u"001|本社|100-0005|東京都千代田区|丸の内９－８－７|見本ビル１０階|佐藤　一郎|03-5555-0100|03-5555-0101||"
          u"honsha@example.co.jp||13|%1|HONSHA01|0"_s,
          u"002|大阪支店|530-0001|大阪府大阪市北区|梅田９－４－１|梅田第五ビル３階|田中　修|06-5555-0200|"
          u"06-5555-0201||osaka@example.co.jp||27|%1|OSAKA002|0"_s,
          u"003|名古屋支店|450-0002|愛知県名古屋市中村区|名駅９－２－５||鈴木　恵子|052-555-0300|052-555-0301||"
          u"nagoya@example.co.jp||23|%1|NAGOYA03|0"_s,
          u"004|福岡支店|812-0012|福岡県福岡市博多区|博多駅中央街９－１|博多ビル６階|松尾　隆|092-555-0400|"
          u"092-555-0401||fukuoka@example.co.jp||40|%1|FUKUOKA4|0"_s,
          u"005|仙台営業所|980-0021|宮城県仙台市青葉区|中央９－３－２||菅原　豊|022-555-0500|022-555-0501||"
          u"sendai@example.co.jp||04|%1|SENDAI05|0"_s,
          u"006|札幌営業所|060-0001|北海道札幌市中央区|北一条西９－７||工藤　典子|011-555-0600|011-555-0601||"
          u"sapporo@example.co.jp||01|%1|SAPPORO6|0"_s}},
        {u"M他業務連携"_s,
         u"コード 業務名 連携有無区分 連携DB 顧客更新有無区分 得意先更新有無区分 納品先更新有無区分 仕入先更新有無区分"
         u" メーカ更新有無区分 対応先更新有無区分 商品更新有無区分 社員更新有無区分"_s,
         {u"002|財務会計|0|A|0|0|0|0|0|0|0|0"_s, u"003|販売管理|0|A|0|0|0|0|0|0|0|0"_s,
          u"004|給与計算|0|A|0|0|0|0|0|0|0|0"_s, u"005|勤怠管理|0|A|0|0|0|0|0|0|0|0"_s}},
    };
}

}  // namespace

// The row without a start date covers the dates before the first era, which are shown in the western calendar.
QStringList StandardEras() {
    return {u"|西暦"_s,         u"18680125|明治"_s, u"19120730|大正"_s,
            u"19261225|昭和"_s, u"19890108|平成"_s, u"20190501|令和"_s};
}

std::span<const char16_t* const> SampleOfficeCodes() { return kOfficeCodes; }
std::span<const SampleSection> SampleSections() { return kSections; }

void WriteMasters(DatabaseFileWriter& store, bool askPins) {
    for (MasterTable& master : Classes() + Organisation() + Company())
        TableWriter(store, master.table)
            .AddLines(master.columns, master.lines.replaceInStrings(u"%1"_s, askPins ? u"1"_s : u"0"_s));
}

}  // namespace setup
