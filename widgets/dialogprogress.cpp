#include "widgets/dialogprogress.h"

#include <QCoreApplication>
#include <QProgressDialog>

DialogProgress::DialogProgress(QWidget* parent) : _parent(parent) {}

DialogProgress::~DialogProgress() = default;

static void letPaint()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void DialogProgress::begin(const std::string& title, const std::string& label)
{
    _dialog = std::make_unique<QProgressDialog>(_parent);
    _dialog->setObjectName("DialogProgress");
    _dialog->setWindowModality(Qt::WindowModal);
    _dialog->setCancelButton(nullptr);
    _dialog->setWindowTitle(QString::fromStdString(title));
    _dialog->setLabelText(QString::fromStdString(label));
    _dialog->setMinimumDuration(0);
}

void DialogProgress::setRange(int least, int largest)
{
    if (!_dialog) return;
    _dialog->setRange(least, largest);
    _dialog->show();
    letPaint();
}

void DialogProgress::step(int value)
{
    if (!_dialog) return;
    _dialog->setValue(value);
    letPaint();
}

void DialogProgress::close()
{
    _dialog.reset();
}
