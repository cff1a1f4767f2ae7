#include "widgets/dismissbox.h"

#include <QDialog>
#include <QPushButton>

DismissBox::DismissBox(QDialog* dialog, const QString& tip)
{
    setObjectName("buttonBox");
    QPushButton* dismiss = addButton("Dismiss", QDialogButtonBox::RejectRole);
    dismiss->setObjectName("dismissButton");
    dismiss->setToolTip(tip);
    dismiss->setAutoDefault(false);
    connect(this, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
}
