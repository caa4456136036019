#include "data/Catalogue.h"

using namespace Qt::StringLiterals;

namespace {

// Names are separated by blanks, indexes by "/".
struct CatalogueLine {
    DatabaseKind store;
    const char16_t* name;
    QString columns;
    QString key;
    QString indexes;
};

const QString kOperationRights =
    u" 操作許可 入力許可 修正許可 削除許可 印刷許可 プレビュ許可 テキスト出力許可 イメージ出力許可"_s;

// Shared by company and office, since an office may override each of these.
const QString kFolders =
    u" 総合振込ファイル 基本読込フォルダ 帳票イメージフォルダ その他読込ファイル 本支店連携フォルダ"
    u" テキスト出力フォルダ BACKUPフォルダ"_s;
const QString kAccounts = u" 銀行口座A 銀行口座B 銀行口座C 銀行口座D"_s;

QString Lettered(const QString& stem) {
    QString names;
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter) names += u' ' + stem + QChar(letter);
    return names;
}

QString ClassRights() {
    QString names;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit) names += u" 処理分類"_s + QChar(digit) + u"操作許可"_s;
    return names;
}

QString StaffColumns() {
    return u"コード 氏名 カナ 性別区分 暗証番号 ログインID 郵便番号 住所A 住所B 住所C 電話 携帯電話 EMAIL"
           u" 事業所コード 部門コード セクションコード 役職コード 在籍区分 社員区分 生年月日 入社日付 退社日付"
           u" 担当者メモ 登録日付 更新日付 アクセス権限"_s +
           ClassRights() + kOperationRights;
}

QString CompanyColumns() {
    return u"ID 名称 郵便番号 住所A 住所B 住所C 代表者名 電話 FAX HOMEPAGE EMAIL 会社ロゴfile 社印file"_s + kAccounts +
           u" 決算月 決算日 締日区分 締日 決済方法 決済月 決済日 現金決済金額 手形サイト 売上金額丸め方法"
           u" 仕入金額丸め方法 在庫評価方法 売上単価少数以下桁数 売上数量少数以下桁数 仕入単価少数以下桁数"
           u" 仕入数量少数以下桁数 在庫単価少数以下桁数 在庫数量少数以下桁数 重量少数以下桁数"
           u" 得意先単価自動更新区分 納品先単価自動更新区分 仕入先単価自動更新区分 写真フォルダ"
           u" ドキュメントフォルダ"_s +
           kFolders +
           u" 明細保存月数 統計保存年数 整理実施可能日自 整理実施可能日至 整理実施可能時刻 明細整理実行日"
           u" 統計整理実行日 伝票番号管理区分 暗証番号有無 特権暗証番号 更新実行区分 システム特権暗証番号"
           u" 登録日付 更新日付"_s;
}

QString OfficeColumns() {
    return u"コード 名称 郵便番号 住所A 住所B 住所C 代表者名 電話 FAX 登録番号 HOMEPAGE EMAIL"_s + kAccounts +
           kFolders + u" 地区コード 暗証番号有無 特権暗証番号 更新実行区分"_s;
}

const QString kPartnerColumns =
    u"コード 業務名 連携有無区分 連携DB 連携DBMW 連携データソース名 連携ドライバ名 連携接続文字列 連携データベース名"
    u" 連携サーバー名 連携ユーザーID 連携パスワード 連携アプリフォルダ 顧客更新有無区分 得意先更新有無区分"
    u" 納品先更新有無区分 仕入先更新有無区分 メーカ更新有無区分 対応先更新有無区分 商品更新有無区分"
    u" 社員更新有無区分"_s;

// The query for the last view compares the first six columns and takes the newest row. With 閲覧区分 as the last column
// this is a covering index.
const QString kViewLogIndex =
    u"担当者コード 閲覧情報 キー項目 伝票事業所コード 伝票番号基準日付 伝票No 閲覧日付 閲覧時刻 閲覧区分"_s;

const QString kListColumns =
    u"運用事業所コード 運用事業所名 選択条件 コード 氏名 カナ 性別区分名 郵便番号 住所A 住所B 住所C 電話 携帯電話"
    u" EMAIL 事業所名 部門名 セクション名 役職名 在籍区分名 社員区分名 生年月日 入社日付 退社日付 事業所コード"
    u" 部門コード セクションコード 役職コード 表示生年月日 表示入社日付 表示退社日付 担当者メモ 登録日付 更新日付"_s;

const QString kRecipient = u"コード 名称A 名称B 郵便番号 住所A 住所B 住所C 御中"_s;
const QString kSender = u" ユーザ名称 ユーザ郵便番号 ユーザ住所A ユーザ住所B ユーザ住所C ユーザ電話 ユーザFAX"_s;
const QString kSecondSender =
    u" ユーザ会社ロゴfile 事業所名称 事業所郵便番号 事業所住所A 事業所住所B 事業所住所C 事業所電話 事業所FAX"_s;

QString LabelColumns() {
    QString columns = u"行番号"_s;
    for (const QString& side : {u" A列"_s, u" B列"_s})
        for (const QString& column : kRecipient.split(u' ')) columns += side + column;
    return columns;
}

QList<CatalogueLine> GeneralLines() {
    const QString kind = u"区分 名称"_s, unit = u"コード 名称 稼動状況区分"_s;
    const auto general = DatabaseKind::General;
    return {
        {general, u"M担当者", StaffColumns(), u"コード"_s,
         u"部門コード/セクションコード/役職コード/事業所コード 部門コード セクションコード 役職コード コード"_s},
        {general, u"Mユーザ", CompanyColumns(), u"ID"_s, {}},
        {general, u"M事業所", OfficeColumns(), u"コード"_s, {}},
        {general, u"M部門", unit, u"コード"_s, {}},
        {general, u"Mセクション", unit, u"コード"_s, {}},
        {general, u"M役職", u"コード 名称"_s, u"コード"_s, {}},
        {general, u"M他業務連携", kPartnerColumns, u"コード"_s, {}},
        {general, u"K性別区分", kind, u"区分"_s, {}},
        {general, u"K在籍区分", kind, u"区分"_s, {}},
        {general, u"K社員区分", kind, u"区分"_s, {}},
        {general, u"K稼動状況区分", kind, u"区分"_s, {}},
        {general, u"K年号区分", u"開始日付 名称"_s, u"開始日付"_s, {}},
        {general,
         u"担当者別操作許可プログラム",
         u"担当者コード 業務メニュ プログラムID"_s + kOperationRights,
         u"担当者コード 業務メニュ プログラムID"_s,
         {}},
        {general,
         u"T閲覧",
         u"担当者コード 閲覧情報 伝票事業所コード 伝票番号基準日付 伝票No キー項目 閲覧日付 閲覧時刻 閲覧区分"_s,
         {},
         kViewLogIndex},
    };
}

QList<CatalogueLine> ConfigurationLines() {
    const auto configuration = DatabaseKind::Configuration;
    QList<CatalogueLine> lines{
        {configuration,
         u"データベース定義",
         u"情報種類 db dbmw ドライバ名 データベース名 サーバー名 接続文字列 ユーザーID パスワード プロバイダ名"
         u" データソース名"_s,
         u"情報種類"_s,
         {}},
        {configuration,
         u"動作環境定義",
         u"動作環境定義ID 運用事業所コード インストール区分 CL更新実行区分 バックアップ日付 運用条件切替日付"
         u" バックアップ方法 バックアップ日指定 月曜バックアップ 火曜バックアップ 水曜バックアップ 木曜バックアップ"
         u" 金曜バックアップ 土曜バックアップ 日曜バックアップ バックアップ開始時刻 バックアップフォルダ"
         u" 起動担当者コード"_s,
         u"動作環境定義ID"_s,
         {}},
        {configuration,
         u"プログラム稼動履歴",
         u"実行日付 プログラムID proccounter 摘要 運用事業所コード 起動担当者コード ユーザID"_s,
         {},
         u"実行日付"_s},
        {configuration,
         u"プログラム連携情報",
         u"発信日時 発信プログラムID 受信プログラムID 受信期限 連携区分 起動連携情報 終了連携情報 運用事業所コード"
         u" 起動担当者コード ユーザID"_s,
         {},
         u"発信日時"_s},
        {configuration, u"プログラムクリップボード", u"貼付日時"_s, {}, u"貼付日時"_s},
        {configuration, u"プログラムクリップボード明細", u"貼付日時"_s, {}, u"貼付日時"_s},
    };
    for (const char16_t* menu : {u"販路推進", u"販路推進データ管理", u"販路推進補助機能", u"販路推進サービスメニュ"})
        lines.append(
            {configuration, menu, u"プログラムID 処理分類"_s + Lettered(u"条件項目名"_s), u"プログラムID"_s, {}});
    return lines;
}

QList<CatalogueLine> ReportLines() {
    return {
        {DatabaseKind::Report, u"要員名簿照会", kListColumns, {}, {}},
        {DatabaseKind::Report, u"要員名簿照会封筒", kRecipient + kSender + kSecondSender, {}, {}},
        {DatabaseKind::Report, u"要員名簿照会はがき", kRecipient + kSender, {}, {}},
        {DatabaseKind::Report, u"要員名簿照会宛名ラベル", LabelColumns(), {}, {}},
    };
}

QList<CatalogueLine> FormsLines() {
    return {
        {DatabaseKind::Forms, u"帳票", u"名称 定義"_s, u"名称"_s, {}},
        {DatabaseKind::Forms, u"リンクテーブル", u"名称 元テーブル 接続 属性"_s, u"名称"_s, {}},
    };
}

TableDefinition TableOf(const CatalogueLine& line) {
    TableDefinition table{line.store, QString::fromUtf16(line.name), {}, line.key.split(u' ', Qt::SkipEmptyParts), {}};
    for (const QString& name : line.columns.split(u' ', Qt::SkipEmptyParts)) table.columns.append({name, u"TEXT"_s});
    for (const QString& index : line.indexes.split(u'/', Qt::SkipEmptyParts)) table.indexes.append(index.split(u' '));
    return table;
}

}  // namespace

const QList<TableDefinition>& SuiteTables() {
    static const QList<TableDefinition> tables = [] {
        QList<TableDefinition> made;
        for (const CatalogueLine& line : GeneralLines() + ConfigurationLines() + ReportLines() + FormsLines())
            made.append(TableOf(line));
        return made;
    }();
    return tables;
}

QList<TableDefinition> TablesOf(DatabaseKind store) {
    QList<TableDefinition> tables = SuiteTables();
    tables.removeIf([store](const TableDefinition& table) { return table.store != store; });
    return tables;
}

const TableDefinition& SuiteTable(DatabaseKind store, const QString& name) {
    for (const TableDefinition& table : SuiteTables())
        if (table.store == store && table.name == name) return table;
    throw database::DatabaseError(platform::kItemNotFound, u"テーブル %1 は台帳にありません。"_s.arg(name));
}

database::TextRules SuiteTextRules() {
    const QStringList words =
        u"氏名 カナ 名称 住所A 住所B 住所C 代表者名 業務名 事業所名 部門名 セクション名"
        u" 役職名 性別区分名 在籍区分名 社員区分名"_s.split(u' ');
    return {words, {u"ログインID"_s}};
}
