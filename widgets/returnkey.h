/// Return and Enter in a dialog whose fields take what is typed when Return is pressed.
#ifndef RETURNKEY_H
#define RETURNKEY_H

#include <QObject>

class QDialog;
class QPushButton;

/// Return in a field only ends its entry; on a button it presses that button; anywhere else it presses the dialog's
/// default. While the dialog has grabbed the keyboard, Return is left to it.
class ReturnKey : public QObject
{
    Q_OBJECT

public:
    /// Both are lent and outlive this, which is a child of the dialog.
    ReturnKey(QDialog* dialog, QPushButton* standard);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QDialog* _dialog;
    QPushButton* _standard;
};

#endif
