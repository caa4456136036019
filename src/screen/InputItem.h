#pragma once

#include "screen/LineEditItem.h"
#include "screen/ItemDesign.h"

/// xField or xPass: InputItem(form, parent, typeName, name, index, design). Typing and pasting obey the design's
/// length and character classes, and kana become half-width where the input method's mode says so, by whatever way they
/// come in; what the program writes is taken as it stands, however long. Raises Change at each change of Text; text
/// that an input method is still composing is not Text yet. xPass shows dots.
class InputItem : public LineEditItem {
  public:
    InputItem(Form& form, QWidget& parent, QString typeName, QString name, int index, ItemDesign design);

    QString Text() const override { return text(); }
    void SetText(const QString& text) override;
    int MaxLength() const override { return design_.maxLength; }
    int MinValue() const override { return design_.minValue; }
    int MaxValue() const override { return design_.maxValue; }

  protected:
    void Insert(const QString& text, bool composed) override;

  private:
    void ApplyImeMode();
    /// What the design takes of a text beside so many characters that are there already.
    QString Bounded(const QString& text, int present) const;
    void TakeOver();

    ItemDesign design_;
    QString text_;  // the Text of the last Change
};
