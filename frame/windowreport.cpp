#include "frame/windowreport.h"

#include <QMessageBox>

void WindowReport::box(const std::string& title, const std::string& text)
{
    QMessageBox::critical(_parent, QString::fromStdString(title), QString::fromStdString(text));
}
