// Part of CompanyInformation.h: the columns of company, office and partner systems.

#include "access/CompanyInformation.h"
#include "access/MasterColumns.h"

namespace {

constexpr MasterColumn<EstablishmentRecord> kCommonColumns[] = {
    {u"名称", &EstablishmentRecord::名称},
    {u"郵便番号", &EstablishmentRecord::郵便番号},
    {u"住所A", &EstablishmentRecord::住所A},
    {u"住所B", &EstablishmentRecord::住所B},
    {u"住所C", &EstablishmentRecord::住所C},
    {u"代表者名", &EstablishmentRecord::代表者名},
    {u"電話", &EstablishmentRecord::電話},
    {u"FAX", &EstablishmentRecord::FAX},
    {u"HOMEPAGE", &EstablishmentRecord::HOMEPAGE},
    {u"EMAIL", &EstablishmentRecord::EMAIL},
    {u"銀行口座A", &EstablishmentRecord::銀行口座A},
    {u"銀行口座B", &EstablishmentRecord::銀行口座B},
    {u"銀行口座C", &EstablishmentRecord::銀行口座C},
    {u"銀行口座D", &EstablishmentRecord::銀行口座D},
    {u"総合振込ファイル", &EstablishmentRecord::総合振込ファイル},
    {u"基本読込フォルダ", &EstablishmentRecord::基本読込フォルダ},
    {u"帳票イメージフォルダ", &EstablishmentRecord::帳票イメージフォルダ},
    {u"その他読込ファイル", &EstablishmentRecord::その他読込ファイル},
    {u"本支店連携フォルダ", &EstablishmentRecord::本支店連携フォルダ},
    {u"テキスト出力フォルダ", &EstablishmentRecord::テキスト出力フォルダ},
    {u"BACKUPフォルダ", &EstablishmentRecord::BACKUPフォルダ},
    {u"暗証番号有無", &EstablishmentRecord::暗証番号有無},
    {u"特権暗証番号", PinField<EstablishmentRecord>{&EstablishmentRecord::特権暗証番号}},
    {u"更新実行区分", &EstablishmentRecord::更新実行区分},
};

constexpr MasterColumn<CompanyRecord> kCompanyColumns[] = {
    {u"ID", &CompanyRecord::ID},
    {u"会社ロゴfile", &CompanyRecord::会社ロゴfile},
    {u"社印file", &CompanyRecord::社印file},
    {u"決算月", &CompanyRecord::決算月},
    {u"決算日", &CompanyRecord::決算日},
    {u"締日区分", &CompanyRecord::締日区分},
    {u"締日", &CompanyRecord::締日},
    {u"決済方法", &CompanyRecord::決済方法},
    {u"決済月", &CompanyRecord::決済月},
    {u"決済日", &CompanyRecord::決済日},
    {u"現金決済金額", &CompanyRecord::現金決済金額},
    {u"手形サイト", &CompanyRecord::手形サイト},
    {u"売上金額丸め方法", &CompanyRecord::売上金額丸め方法},
    {u"仕入金額丸め方法", &CompanyRecord::仕入金額丸め方法},
    {u"在庫評価方法", &CompanyRecord::在庫評価方法},
    {u"売上単価少数以下桁数", &CompanyRecord::売上単価少数以下桁数},
    {u"売上数量少数以下桁数", &CompanyRecord::売上数量少数以下桁数},
    {u"仕入単価少数以下桁数", &CompanyRecord::仕入単価少数以下桁数},
    {u"仕入数量少数以下桁数", &CompanyRecord::仕入数量少数以下桁数},
    {u"在庫単価少数以下桁数", &CompanyRecord::在庫単価少数以下桁数},
    {u"在庫数量少数以下桁数", &CompanyRecord::在庫数量少数以下桁数},
    {u"重量少数以下桁数", &CompanyRecord::重量少数以下桁数},
    {u"得意先単価自動更新区分", &CompanyRecord::得意先単価自動更新区分},
    {u"納品先単価自動更新区分", &CompanyRecord::納品先単価自動更新区分},
    {u"仕入先単価自動更新区分", &CompanyRecord::仕入先単価自動更新区分},
    {u"写真フォルダ", &CompanyRecord::写真フォルダ},
    {u"ドキュメントフォルダ", &CompanyRecord::ドキュメントフォルダ},
    {u"明細保存月数", &CompanyRecord::明細保存月数},
    {u"統計保存年数", &CompanyRecord::統計保存年数},
    {u"整理実施可能日自", &CompanyRecord::整理実施可能日自},
    {u"整理実施可能日至", &CompanyRecord::整理実施可能日至},
    {u"整理実施可能時刻", &CompanyRecord::整理実施可能時刻},
    {u"明細整理実行日", &CompanyRecord::明細整理実行日},
    {u"統計整理実行日", &CompanyRecord::統計整理実行日},
    {u"伝票番号管理区分", &CompanyRecord::伝票番号管理区分},
    {u"システム特権暗証番号", PinField<CompanyRecord>{&CompanyRecord::システム特権暗証番号}},
    {u"登録日付", &CompanyRecord::登録日付},
    {u"更新日付", &CompanyRecord::更新日付},
};

constexpr MasterColumn<OfficeRecord> kOfficeColumns[] = {
    {u"登録番号", &OfficeRecord::登録番号},
    {u"地区コード", &OfficeRecord::地区コード},
};

template <typename Value>
struct PartnerColumn {
    QStringView name;
    std::array<Value, PartnerLinkTable::kSlots> PartnerLinkTable::*values;
};

constexpr PartnerColumn<QString> kTextColumns[] = {
    {u"業務名", &PartnerLinkTable::業務名},
    {u"連携DB", &PartnerLinkTable::連携DB},
    {u"連携DBMW", &PartnerLinkTable::連携DBMW},
    {u"連携データソース名", &PartnerLinkTable::連携データソース名},
    {u"連携ドライバ名", &PartnerLinkTable::連携ドライバ名},
    {u"連携接続文字列", &PartnerLinkTable::連携接続文字列},
    {u"連携データベース名", &PartnerLinkTable::連携データベース名},
    {u"連携サーバー名", &PartnerLinkTable::連携サーバー名},
    {u"連携ユーザーID", &PartnerLinkTable::連携ユーザーID},
    {u"連携パスワード", &PartnerLinkTable::連携パスワード},
    {u"連携アプリフォルダ", &PartnerLinkTable::連携アプリフォルダ},
};

constexpr PartnerColumn<int> kNumberColumns[] = {
    {u"連携有無区分", &PartnerLinkTable::連携有無区分},
    {u"顧客更新有無区分", &PartnerLinkTable::顧客更新有無区分},
    {u"得意先更新有無区分", &PartnerLinkTable::得意先更新有無区分},
    {u"納品先更新有無区分", &PartnerLinkTable::納品先更新有無区分},
    {u"仕入先更新有無区分", &PartnerLinkTable::仕入先更新有無区分},
    {u"メーカ更新有無区分", &PartnerLinkTable::メーカ更新有無区分},
    {u"対応先更新有無区分", &PartnerLinkTable::対応先更新有無区分},
    {u"商品更新有無区分", &PartnerLinkTable::商品更新有無区分},
    {u"社員更新有無区分", &PartnerLinkTable::社員更新有無区分},
};

}  // namespace

void TakeCompany(const database::Recordset& row, CompanyRecord& target) {
    TakeColumns<EstablishmentRecord>(row, kCommonColumns, target);
    TakeColumns<CompanyRecord>(row, kCompanyColumns, target);
}

void TakeOffice(const database::Recordset& row, OfficeRecord& target) {
    TakeColumns<EstablishmentRecord>(row, kCommonColumns, target);
    TakeColumns<OfficeRecord>(row, kOfficeColumns, target);
}

void TakePartner(const database::Recordset& row, PartnerLinkTable& partners, size_t slot) {
    for (const auto& column : kTextColumns) TakeText(row[column.name], (partners.*column.values)[slot]);
    for (const auto& column : kNumberColumns) TakeNumber(row[column.name], (partners.*column.values)[slot]);
}
