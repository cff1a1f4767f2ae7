#include "widgets/dismissbox.h"

#include "widgets/returnkey.h"

#include <QDialog>
#include <QPushButton>

DismissBox::DismissBox(QDialog* dialog, const QString& tip)
{
    setObjectName("buttonBox");
    QPushButton* dismiss = addButton("Dismiss", QDialogButtonBox::RejectRole);
    dismiss->setObjectName("dismissButton");
    dismiss->setToolTip(tip);
    dismiss->setAutoDefault(false);
    new ReturnKey(dialog, dismiss);
    connect(this, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
}
