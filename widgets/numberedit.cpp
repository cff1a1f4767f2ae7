#include "widgets/numberedit.h"

#include <QFontMetrics>
#include <QToolTip>

#include <cmath>

NumberEdit::NumberEdit(double least, double largest, QWidget* parent)
    : QLineEdit(parent), _least(least), _largest(largest)
{
    setFixedWidth(fontMetrics().horizontalAdvance("-0.00000e+000 "));
    connect(this, &QLineEdit::returnPressed, this, &NumberEdit::commit);
    connect(this, &QLineEdit::editingFinished, this, &NumberEdit::commitTyped);
}

void NumberEdit::setBlankValue(double value)
{
    _hasBlankValue = true;
    _blankValue = value;
}

void NumberEdit::setNumber(double number, char format, int precision)
{
    _number = number;
    _shown = QString::number(number, format, precision);
    setText(_shown);
}

void NumberEdit::setBlank()
{
    _shown.clear();
    clear();
}

bool NumberEdit::readText(double* number) const
{
    const QString typed = text().trimmed();
    if (typed.isEmpty()) {
        *number = _blankValue;
        return _hasBlankValue;
    }
    bool ok = false;
    *number = _isWhole ? typed.toInt(&ok) : typed.toDouble(&ok);
    return ok && std::isfinite(*number) && *number >= _least && *number <= _largest;
}

void NumberEdit::commit()
{
    double number = 0.0;
    if (!readText(&number)) {
        setText(_shown);
        selectAll();
        QToolTip::showText(mapToGlobal(QPoint(0, height())),
                           tr("A %1 from %2 to %3 is wanted; the former value stays.")
                               .arg(_isWhole ? tr("whole number") : tr("number"))
                               .arg(_least)
                               .arg(_largest),
                           this);
        return;
    }
    _number = number;
    _shown = text();
    setModified(false);
    emit numberEdited(number);
}

/// Return comes here too, after it has been dealt with.
void NumberEdit::commitTyped()
{
    if (isModified()) commit();
}
