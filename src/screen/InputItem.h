#pragma once

#include <QFlags>
#include <QString>

#include "screen/LineEditItem.h"

/// Input method of an input item; the numbers are those of the suite's form designs. None, On and Hiragana leave the
/// user's input method as it is, Off and Disabled switch it off. HalfKatakana converts the input to half-width: kana,
/// and what ToHalfWidth converts.
enum class ImeMode { None = 0, On = 1, Off = 2, Disabled = 3, Hiragana = 4, HalfKatakana = 6 };

/// Characters that an item accepts while typing and pasting; the numbers are those of the suite's form designs.
enum class CharacterClass {
    All = 0x001,      ///< no limit
    DblByte = 0x002,  ///< all but ASCII and half-width katakana
    Kana = 0x004,     ///< half-width katakana
    Lower = 0x008,    ///< a to z
    Num = 0x010,      ///< 0 to 9
    NumExt = 0x020,   ///< + - . ,
    Space = 0x040,    ///< U+0020
    Symbol = 0x080,   ///< other printable ASCII, + - . , included
    Upper = 0x100,    ///< A to Z
};
Q_DECLARE_FLAGS(CharacterClasses, CharacterClass)
Q_DECLARE_OPERATORS_FOR_FLAGS(CharacterClasses)

/// True if the classes include this UTF-16 unit. Control characters and separators of lines are never accepted.
bool Allows(CharacterClasses classes, QChar character);
/// The characters of the text that the classes include; never half of a surrogate pair.
QString Filtered(const QString& text, CharacterClasses classes);
/// The first `length` UTF-16 units, one less if that would split a surrogate pair. Empty for a negative length.
QString CutToLimit(const QString& text, int length);

/// Design-time properties of an input item.
struct ItemDesign {
    int maxLength = 0;  ///< UTF-16 units that can be entered, 0 for no limit; text set by the program is never cut
    ImeMode imeMode = ImeMode::None;
    CharacterClasses classes = CharacterClass::All;
    int minValue = 0;  ///< returned by MinValue; input is not checked against the two
    int maxValue = 0;
    QString text;  ///< initial text
};

/// xField or xPass: InputItem(form, parent, typeName, name, index, design). User input, by keys, input method or
/// clipboard, is limited to the design's length and character classes. Before that it is converted to half-width for
/// ImeMode::HalfKatakana and, by ToHalfWidth, for classes with half-width characters only. So is text that a screen
/// reader writes. Text set by the program is not checked. Emits Change
/// at each change of Text, which does not include an unfinished composition of the input method. xPass shows dots.
class InputItem : public LineEditItem {
  public:
    InputItem(Form& form, QWidget& parent, QString typeName, QString name, int index, ItemDesign design);

    QString Text() const override { return text(); }
    void SetText(const QString& text) override;
    int MaxLength() const override { return design_.maxLength; }
    int MinValue() const override { return design_.minValue; }
    int MaxValue() const override { return design_.maxValue; }

  protected:
    bool UsesInputMethod() const override;
    Intake Insert(const QString& text, bool composed) override;

  private:
    void ApplyImeMode();
    QString Converted(const QString& text) const;
    /// Reduces an input to what the design accepts when `present` characters remain in the item.
    Intake Limit(QString& text, int present) const;
    void AcceptText();

    ItemDesign design_;
    QString text_;  // Text at the last Change
};

/// xNum: NumItem(form, parent, name). A number >= 0 with bounds, initially 0 to 9. A typed digit replaces the number,
/// or is appended to the digit typed just before if the result is within the bounds; input outside the bounds is
/// rejected. The arrow keys count up and down; deleting all digits gives MinValue. The program can write values outside
/// the bounds. The text is always that of Value. Emits Change at each change of Value. The wheel does nothing.
class NumItem : public LineEditItem {
  public:
    NumItem(Form& form, QWidget& parent, QString name);

    QString Text() const override { return text(); }
    int Value() const override { return value_; }
    void SetValue(int value) override;
    int MinValue() const override { return minValue_; }
    int MaxValue() const override { return maxValue_; }
    void SetMinValue(int value) override { minValue_ = value; }
    void SetMaxValue(int value) override { maxValue_ = value; }

    void FocusGiven(bool byPress) override;

  protected:
    void AddToMenu(QMenu& menu) override;
    bool UsesInputMethod() const override { return false; }
    Intake Insert(const QString& text, bool composed) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool Within(qint64 value) const { return minValue_ <= value && value <= maxValue_; }
    void Show();
    void AcceptValue(int value);
    void AcceptText();

    int value_ = 0;
    int minValue_ = 0;
    int maxValue_ = 9;
    bool digitTyped_ = false;  // the next digit may be appended
};
