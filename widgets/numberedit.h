/// A line that holds one number.
#ifndef NUMBEREDIT_H
#define NUMBEREDIT_H

#include <QLineEdit>

/// Takes a number in [least, largest], with a point whatever the locale. Return always commits; leaving the
/// field commits what was typed. Text that is no such number gives way to the former one, with a tip that
/// names the limits.
class NumberEdit : public QLineEdit
{
    Q_OBJECT

public:
    NumberEdit(double least, double largest, QWidget* parent = nullptr);

    /// Only whole numbers.
    void setWhole(bool on) { _isWhole = on; }
    /// What an empty field means; without this it is refused.
    void setBlankValue(double value);

    /// The number in force: the last that was shown or committed.
    double number() const { return _number; }
    /// Shows a number; nothing is emitted. Format and precision are those of QString::number.
    void setNumber(double number, char format = 'g', int precision = 6);
    /// Shows an empty field; nothing is emitted, the number stays.
    void setBlank();

signals:
    /// The user has committed a number.
    void numberEdited(double number);

private:
    void commit();
    void commitTyped();
    bool readText(double* number) const;

    double _least, _largest;
    bool _isWhole = false;
    bool _hasBlankValue = false;
    double _blankValue = 0.0;
    double _number = 0.0;
    QString _shown;  // the text of _number
};

#endif
