#pragma once

#include <QString>
#include <array>

// Master data of the company. Members have the names of their columns.

/// Columns that Mユーザ (company) and M事業所 (office) have in common.
struct EstablishmentRecord {
    QString 名称, 郵便番号, 住所A, 住所B, 住所C, 代表者名, 電話, FAX, HOMEPAGE, EMAIL;
    QString 銀行口座A, 銀行口座B, 銀行口座C, 銀行口座D;
    QString 総合振込ファイル, 基本読込フォルダ, 帳票イメージフォルダ, その他読込ファイル, 本支店連携フォルダ,
        テキスト出力フォルダ, BACKUPフォルダ;
    int 暗証番号有無 = 0;  ///< 1: PINs are required; copied to ProgramGlobals::PinRequired
    QString 特権暗証番号;  ///< decrypted; that of the operating office is accepted for any staff code
    int 更新実行区分 = 0;
};

/// The row '0001' of Mユーザ. Null is stored as empty or 0. After the operating office has been read, 更新実行区分 is
/// that of the office, and each folder that is not empty there.
struct CompanyRecord : EstablishmentRecord {
    QString ID, 会社ロゴfile, 社印file;
    int 決算月 = 0, 決算日 = 0, 締日区分 = 0, 締日 = 0, 決済方法 = 0, 決済月 = 0, 決済日 = 0;
    double 現金決済金額 = 0;
    int 手形サイト = 0, 売上金額丸め方法 = 0, 仕入金額丸め方法 = 0, 在庫評価方法 = 0;
    int 売上単価少数以下桁数 = 0, 売上数量少数以下桁数 = 0, 仕入単価少数以下桁数 = 0, 仕入数量少数以下桁数 = 0;
    int 在庫単価少数以下桁数 = 0, 在庫数量少数以下桁数 = 0, 重量少数以下桁数 = 0;
    int 得意先単価自動更新区分 = 0, 納品先単価自動更新区分 = 0, 仕入先単価自動更新区分 = 0;
    QString 写真フォルダ, ドキュメントフォルダ;
    int 明細保存月数 = 0, 統計保存年数 = 0, 整理実施可能日自 = 0, 整理実施可能日至 = 0, 整理実施可能時刻 = 0;
    QString 明細整理実行日, 統計整理実行日;
    int 伝票番号管理区分 = 0;
    QString システム特権暗証番号;  ///< decrypted
    QString 登録日付, 更新日付;
};

/// A row of M事業所.
struct OfficeRecord : EstablishmentRecord {
    QString コード, 登録番号, 地区コード;
};

/// Partner systems by slot, from M他業務連携. Slots 0 to 4 are read at the start, of which 3 and 4 contain the same
/// row. Part of the suite's common record; these programs do not use it further.
struct PartnerLinkTable {
    static constexpr int kSlots = 10;
    std::array<QString, kSlots> 業務名;
    std::array<int, kSlots> 連携有無区分{};
    std::array<QString, kSlots> 連携DB, 連携DBMW, 連携データソース名, 連携ドライバ名, 連携接続文字列,
        連携データベース名, 連携サーバー名, 連携ユーザーID, 連携パスワード, 連携アプリフォルダ;
    std::array<int, kSlots> 顧客更新有無区分{}, 得意先更新有無区分{}, 納品先更新有無区分{}, 仕入先更新有無区分{},
        メーカ更新有無区分{}, 対応先更新有無区分{}, 商品更新有無区分{}, 社員更新有無区分{};
};
