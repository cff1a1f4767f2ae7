#include "frame/windowreport.h"

#include <QMessageBox>

void WindowReport::box(const std::string& title, const std::string& text)
{
    QMessageBox box(QMessageBox::Critical, QString::fromStdString(title), QString::fromStdString(text), QMessageBox::Ok,
                    _parent);
    // Where memory is the fault, settings may not be.
    if (title == "SEGY Load Error" || title == "SEGY Reel Header Problem")
        box.setInformativeText("\"Guess Settings\" in the SEG-Y Menu looks at the file and fills in what reads it.");
    box.exec();
}
