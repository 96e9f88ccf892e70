#include "widgets/numberbox.h"

namespace
{

bool is_minus(QChar c)
{
    const ushort code = c.unicode();
    const bool is_hyphen_or_dash = code >= 0x2010 && code <= 0x2013;
    return code == '-' || is_hyphen_or_dash || code == 0x2212 || code == 0xfe63 || code == 0xff0d;
}

QString plain_number(const QString& text)
{
    QString plain = text.trimmed();
    for (int i = 0; i < plain.size(); ++i)
        if (is_minus(plain.at(i)))
            plain[i] = QLatin1Char('-');
    return plain.replace(QLatin1Char(','), QLatin1Char('.'));
}

/// Leaves the place of sign and points to the base class, which lets one type over a point.
bool has_only_digits_signs_and_points(const QString& text)
{
    for (int i = 0; i < text.size(); ++i) {
        const char c = text.at(i).toLatin1();
        if (!(c >= '0' && c <= '9') && c != '.' && c != '-' && c != '+')
            return false;
    }
    return true;
}

} // namespace

NumberBox::NumberBox(QWidget* parent) : QDoubleSpinBox(parent) { setLocale(QLocale::c()); }

QValidator::State NumberBox::validate(QString& text, int& cursor) const
{
    const bool framed = text.startsWith(prefix()) && text.endsWith(suffix())
                        && text.size() >= prefix().size() + suffix().size();
    const QString entered =
        framed ? text.mid(prefix().size(), text.size() - prefix().size() - suffix().size()) : text;
    const QString plain = plain_number(entered);
    if (!has_only_digits_signs_and_points(plain))
        return QValidator::Invalid;
    if (plain != entered) {
        text = prefix() + plain + suffix();
        cursor = qMin(cursor, prefix().size() + plain.size());
    }
    return QDoubleSpinBox::validate(text, cursor);
}

double NumberBox::valueFromText(const QString& text) const
{
    QString plain = text;
    int cursor = 0;
    validate(plain, cursor);
    return QDoubleSpinBox::valueFromText(plain);
}
