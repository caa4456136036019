#include <array>

#include "access/CompanyInformation.h"
#include "access/MasterColumns.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"

using namespace Qt::StringLiterals;

namespace {

// "005" is listed twice, so two slots contain the same row. The suite's programs rely on these slot numbers.
constexpr std::array<QStringView, 5> kPartnerCodes = {u"003", u"002", u"004", u"005", u"005"};

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

void TakePartner(const database::Recordset& row, size_t slot) {
    PartnerLinkTable& partners = Globals().PartnerLinks;
    for (const auto& column : kTextColumns) TakeText(row[column.name], (partners.*column.values)[slot]);
    for (const auto& column : kNumberColumns) TakeNumber(row[column.name], (partners.*column.values)[slot]);
}

}  // namespace

void LoadPartnerLinks() {
    for (size_t slot = 0; slot < kPartnerCodes.size(); ++slot) {
        database::Recordset row;
        if (OpenRecordset(
                row, u"SELECT TOP 1 * FROM M他業務連携 WHERE コード = '"_s + kPartnerCodes[slot].toString() + u"'"_s,
                false))
            TakePartner(row, slot);
        row.Close();
    }
}
