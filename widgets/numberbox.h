// A spin box whose numbers look and read the same on every desktop.
#ifndef WIDGETS_NUMBERBOX_H
#define WIDGETS_NUMBERBOX_H

#include <QDoubleSpinBox>

/// Shows a decimal point and no group separators, whatever the language of the desktop. Typed or
/// pasted, "." and "," are both the decimal sign, the typographic minus is a minus, and blanks
/// around the number fall away. Text that is no number within the range, or has too many decimals,
/// is refused while it is entered.
class NumberBox : public QDoubleSpinBox
{
public:
    explicit NumberBox(QWidget* parent = nullptr);

    /// Writes into `text` what is shown for it, a point for a comma above all.
    QValidator::State validate(QString& text, int& cursor) const;
    /// Reads what validate() calls acceptable.
    double valueFromText(const QString& text) const;
};

#endif
