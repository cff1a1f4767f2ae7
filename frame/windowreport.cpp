#include "frame/windowreport.h"

#include <QMessageBox>

void WindowReport::box(const std::string& title, const std::string& text)
{
    QMessageBox::critical(_parent, QString::fromStdString(title), QString::fromStdString(text));
}

void WindowReport::line(const std::string& text)
{
    PrintReport::line(text);
    // The readers warn of a header that they have repaired in lines of their own.
    for (const QString& row : QString::fromStdString(text).split('\n'))
        if (onAssumed && row.contains("Warning, fixed")) onAssumed(row);
}

void WindowReport::assumed(const std::string& text)
{
    PrintReport::line(text + "\n");
    if (onAssumed) onAssumed(QString::fromStdString(text));
}
