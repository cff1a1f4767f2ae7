/// The last row of a dialog whose controls act at once: there is nothing to apply, only to dismiss.
#ifndef DISMISSBOX_H
#define DISMISSBOX_H

#include <QDialogButtonBox>

/// Holds the button "Dismiss", which rejects the dialog. Return in a field of the dialog doesn't press it.
class DismissBox : public QDialogButtonBox
{
    Q_OBJECT

public:
    /// @param tip  what dismissing leaves as it is
    DismissBox(QDialog* dialog, const QString& tip);
};

#endif
