-- Fills the work tables as the programs do, from the sample's staff. Runs on repdb with gnrdb attached as "general".
-- With the parameter @everybody all of the staff is on all reports; otherwise only what the pictures of the manual show.
CREATE TEMP TABLE person AS
SELECT m.*, row_number() OVER (ORDER BY m.コード) - 1 AS place, o.名称 AS 事業所名, d.名称 AS 部門名,
       s.名称 AS セクション名, p.名称 AS 役職名, g.名称 AS 性別区分名, z.名称 AS 在籍区分名, c.名称 AS 社員区分名
FROM general.M担当者 m
LEFT JOIN general.M事業所 o ON o.コード = m.事業所コード
LEFT JOIN general.M部門 d ON d.コード = m.部門コード
LEFT JOIN general.Mセクション s ON s.コード = m.セクションコード
LEFT JOIN general.M役職 p ON p.コード = m.役職コード
LEFT JOIN general.K性別区分 g ON g.区分 = m.性別区分
LEFT JOIN general.K在籍区分 z ON z.区分 = m.在籍区分
LEFT JOIN general.K社員区分 c ON c.区分 = m.社員区分;

CREATE TEMP TABLE dates AS
SELECT day, (SELECT 名称 || printf('%02d', substr(day, 1, 4) - substr(開始日付, 1, 4) + 1) FROM general.K年号区分
             WHERE 開始日付 <> '' AND 開始日付 <= day ORDER BY 開始日付 DESC LIMIT 1)
            || '年' || substr(day, 5, 2) || '月' || substr(day, 7, 2) || '日' AS era
FROM (SELECT 生年月日 AS day FROM person UNION SELECT 入社日付 FROM person UNION SELECT 退社日付 FROM person)
WHERE length(day) = 8;

INSERT INTO 要員名簿照会 (運用事業所コード, 運用事業所名, 選択条件, コード, 氏名, カナ, 性別区分名, 郵便番号, 住所A, 住所B, 住所C,
    電話, 携帯電話, EMAIL, 事業所名, 部門名, セクション名, 役職名, 在籍区分名, 社員区分名, 表示生年月日, 表示入社日付, 表示退社日付)
SELECT '000', '全社', '在籍区分：全て  社員区分：全て  部門コード範囲:010～100  表示順：担当者コード', コード, 氏名, カナ, 性別区分名,
    郵便番号, 住所A, 住所B, 住所C, 電話, 携帯電話, EMAIL, 事業所名, 部門名, セクション名, 役職名, 在籍区分名, 社員区分名,
    (SELECT era FROM dates WHERE day = 生年月日), (SELECT era FROM dates WHERE day = 入社日付),
    (SELECT era FROM dates WHERE day = 退社日付)
FROM person ORDER BY place;

INSERT INTO 要員名簿照会封筒 (コード, 名称A, 名称B, 郵便番号, 住所A, 住所B, 住所C, 御中, ユーザ名称, ユーザ郵便番号, ユーザ住所A,
    ユーザ住所B, ユーザ住所C, ユーザ電話, ユーザFAX, 事業所名称, 事業所郵便番号, 事業所住所A, 事業所住所B, 事業所住所C, 事業所電話, 事業所FAX)
SELECT p.コード, '', p.氏名 || ' 様', p.郵便番号, p.住所A, p.住所B, p.住所C, '様', u.名称, o.郵便番号, o.住所A, o.住所B, o.住所C,
    o.電話, o.FAX, b.名称, b.郵便番号, b.住所A, b.住所B, b.住所C, b.電話, b.FAX
FROM person p, general.Mユーザ u, general.M事業所 o, general.M事業所 b
WHERE o.コード = '001' AND b.コード = '002' AND (@everybody OR p.住所C <> '') ORDER BY p.place;

INSERT INTO 要員名簿照会はがき (コード, 名称A, 名称B, 郵便番号, 住所A, 住所B, 住所C, 御中, ユーザ名称, ユーザ郵便番号, ユーザ住所A,
    ユーザ住所B, ユーザ住所C, ユーザ電話, ユーザFAX)
SELECT p.コード, '', p.氏名 || ' 様', p.郵便番号, p.住所A, p.住所B, p.住所C, '様', u.名称, u.郵便番号, u.住所A, u.住所B, u.住所C,
    u.電話, u.FAX
FROM person p, general.Mユーザ u WHERE @everybody OR p.住所C <> '' ORDER BY p.place DESC;

INSERT INTO 要員名簿照会宛名ラベル (行番号, A列コード, A列名称B, A列郵便番号, A列住所A, A列住所B, A列住所C, A列御中,
    B列コード, B列名称B, B列郵便番号, B列住所A, B列住所B, B列住所C, B列御中)
SELECT printf('%06d', a.place / 2 + 1), a.コード, a.氏名 || ' 様', a.郵便番号, a.住所A, a.住所B, a.住所C, '様',
    b.コード, b.氏名 || ' 様', b.郵便番号, b.住所A, b.住所B, b.住所C, '様'
FROM person a LEFT JOIN person b ON b.place = a.place + 1 AND (@everybody OR b.place < 11)
WHERE a.place % 2 = 0 AND (@everybody OR a.place < 11) ORDER BY a.place;
INSERT INTO 要員名簿照会宛名ラベル (行番号) SELECT '000006' WHERE (SELECT count(*) FROM 要員名簿照会宛名ラベル) < 6;
