#include "report-host/template/TemplateParser.h"

#include <QSet>
#include <algorithm>

#include "report-host/template/TemplateDefinition.h"
#include "report-host/template/TemplateSyntax.h"
#include "report-host/template/TemplateValues.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

struct NamedPaper {
    QStringView name;
    double width, height;
};
constexpr NamedPaper kPapers[] = {{u"A4", 210, 297},     {u"A5", 148, 210},     {u"B4", 257, 364},
                                  {u"B5", 182, 257},     {u"はがき", 100, 148}, {u"長形3号", 120, 235},
                                  {u"長形4号", 90, 205}, {u"角形2号", 240, 332}};

class TemplateReader {
  public:
    ParsedTemplate Read(const QString& text) {
        if (text.size() > kMostTemplateText || text.count(u'\n') >= kMostTemplateLines) return TooLong();
        const QStringList lines = text.split(u'\n');
        for (qsizetype i = 0; i < lines.size(); ++i) ReadLine(lines[i], static_cast<int>(i) + 1);
        CheckTemplate(parsed_.definition, parsed_.errors);
        return std::move(parsed_);
    }

  private:
    static ParsedTemplate TooLong() {
        return {{},
                {{0, u"定義が長すぎます。%1 行、%2 文字までにしてください。"_s.arg(kMostTemplateLines)
                         .arg(kMostTemplateText)}}};
    }

    struct Command {
        QStringView name;
        int places;  // required words before the settings
        QStringView usage;
        bool once;
        void (TemplateReader::*read)(const TemplateToken&);
    };
    static const Command kCommands[];

    void ReadLine(const QString& text, int number) {
        try {
            const std::optional<TemplateToken> line = ReadTemplateLine(text, number);
            if (!line) return;
            const Command& command = CommandOf(*line);
            (this->*command.read)(*line);
        } catch (const TemplateError& error) {
            parsed_.errors.append({number, error.Description()});
        }
    }

    const Command& CommandOf(const TemplateToken& line);

    void Settings(const TemplateToken& line, qsizetype firstWord) {
        TemplateElement none;
        ApplySettings(line, firstWord, {parsed_.definition, none});
    }

    void ReadPaper(const TemplateToken& line) {
        const QString& word = line.words[0].text;
        const auto* paper =
            std::find_if(std::begin(kPapers), std::end(kPapers), [&](const NamedPaper& p) { return p.name == word; });
        parsed_.definition.page =
            paper == std::end(kPapers) ? ReadSize(word, u"用紙"_s) : QSizeF(paper->width, paper->height);
        Settings(line, 1);
    }

    void ReadSettingsOnly(const TemplateToken& line) { Settings(line, 0); }

    void ReadTable(const TemplateToken& line) {
        parsed_.definition.table = line.words[0].text;
        Settings(line, 1);
    }

    void ReadOrder(const TemplateToken& line) {
        for (const TemplateWord& word : line.words) {
            if (word.IsSetting()) throw TemplateError{0, u"並びに「%1」という指定はありません。"_s.arg(word.name)};
            parsed_.definition.order.append(word.text);
        }
    }

    void ReadEra(const TemplateToken& line) {
        parsed_.definition.eras.append({ReadDay(line.words[0].text, u"年号の開始日付"_s), line.words[1].text});
        Settings(line, 2);
    }

    void ReadDefaultFace(const TemplateToken& line) {
        style_.face = ReadFace(line.words[0].text);
        style_.points = ReadPoints(line.words[1].text, u"書体の大きさ"_s);
        Settings(line, 2);
    }

    void ReadGrid(const TemplateToken& line) {
        parsed_.definition.grid.emplace().line = line.number;
        Settings(line, 0);
    }

    void ReadSection(const TemplateToken& line, TemplateSection& section) {
        section_ = &section;
        section.line = line.number;
        const TemplateWord& height = line.words[0];
        if (height.name != u"高さ"_s)
            throw TemplateError{0, u"%1の後ろに 高さ=… を書いてください。"_s.arg(line.command)};
        section.height = ReadLength(height.text, height.name);
        Settings(line, 1);
    }
    void ReadHead(const TemplateToken& line) { ReadSection(line, parsed_.definition.head); }
    void ReadDetail(const TemplateToken& line) { ReadSection(line, parsed_.definition.detail); }
    void ReadFoot(const TemplateToken& line) { ReadSection(line, parsed_.definition.foot); }

    void ReadElement(const TemplateToken& line);

    ParsedTemplate parsed_;
    QSet<QString> seen_;
    TextStyle style_;  // default for the following texts
    TemplateSection* section_ = nullptr;
    int elements_ = 0;
};

const TemplateReader::Command TemplateReader::kCommands[] = {
    {u"用紙", 1, u"幅x高さ か用紙の名前", true, &TemplateReader::ReadPaper},
    {u"余白", 1, u"左=… 上=… 右=… 下=…", true, &TemplateReader::ReadSettingsOnly},
    {u"補正", 1, u"右=… 下=…", true, &TemplateReader::ReadSettingsOnly},
    {u"表", 1, u"リンクテーブルの名前", true, &TemplateReader::ReadTable},
    {u"並び", 1, u"列の名前", true, &TemplateReader::ReadOrder},
    {u"年号", 2, u"開始日付 名称", false, &TemplateReader::ReadEra},
    {u"書体", 2, u"書体の名前 大きさ", false, &TemplateReader::ReadDefaultFace},
    {u"升目", 1, u"横=… 縦=… 左=… 上=… 横間隔=… 縦間隔=…", true, &TemplateReader::ReadGrid},
    {u"頁頭", 1, u"高さ=…", true, &TemplateReader::ReadHead},
    {u"明細", 1, u"高さ=…", true, &TemplateReader::ReadDetail},
    {u"頁脚", 1, u"高さ=…", true, &TemplateReader::ReadFoot},
    {u"文字", 3, u"左,上 幅x高さ \"内容\"", false, &TemplateReader::ReadElement},
    {u"数字枠", 3, u"左,上 幅x高さ \"内容\"", false, &TemplateReader::ReadElement},
    {u"絵", 3, u"左,上 幅x高さ \"ファイル\"", false, &TemplateReader::ReadElement},
    {u"枠", 2, u"左,上 幅x高さ", false, &TemplateReader::ReadElement},
    {u"線", 2, u"左,上 左,上", false, &TemplateReader::ReadElement},
};

const TemplateReader::Command& TemplateReader::CommandOf(const TemplateToken& line) {
    const auto* command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                       [&](const Command& c) { return c.name == line.command; });
    if (command == std::end(kCommands)) throw TemplateError{0, u"「%1」という命令はありません。"_s.arg(line.command)};
    if (line.words.size() < command->places)
        throw TemplateError{0, u"%1の後ろに %2 を書いてください。"_s.arg(line.command, command->usage)};
    if (command->once && seen_.contains(line.command))
        throw TemplateError{0, u"「%1」が二度あります。"_s.arg(line.command)};
    seen_.insert(line.command);
    return *command;
}

ElementKind KindOf(const QString& command) {
    if (command == u"文字"_s) return ElementKind::Text;
    if (command == u"数字枠"_s) return ElementKind::DigitBoxes;
    if (command == u"絵"_s) return ElementKind::Picture;
    return command == u"枠"_s ? ElementKind::Frame : ElementKind::Line;
}

void TemplateReader::ReadElement(const TemplateToken& line) {
    if (!section_)
        throw TemplateError{0, u"%1は 頁頭、明細、頁脚 のどれかの後ろに書いてください。"_s.arg(line.command)};
    TemplateElement element;
    element.kind = KindOf(line.command);
    element.line = line.number;
    element.style = style_;
    qsizetype used = 2;
    const QPointF corner = ReadPoint(line.words[0].text, u"位置"_s);
    if (element.kind == ElementKind::Line)
        element.place = QRectF(corner, ReadPoint(line.words[1].text, u"位置"_s));
    else
        element.place = QRectF(corner, ReadSize(line.words[1].text, u"大きさ"_s));
    if (element.kind != ElementKind::Line && element.kind != ElementKind::Frame) {
        if (!line.words[2].quoted) throw TemplateError{0, u"内容を引用符「\"」で囲んでください。"_s};
        element.text = ReadPattern(line.words[2].text);
        used = 3;
    }
    ApplySettings(line, used, {parsed_.definition, element});
    // Reported once; further elements are ignored.
    if (++elements_ <= kMostElements) return section_->elements.append(element);
    if (elements_ == kMostElements + 1)
        throw TemplateError{0, u"部品が多すぎます。%1 個までにしてください。"_s.arg(kMostElements)};
}

}  // namespace

ParsedTemplate ParseTemplate(const QString& text) { return TemplateReader().Read(text); }

}  // namespace report
