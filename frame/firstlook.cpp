#include "frame/firstlook.h"

#include "frame/firstlookbar.h"
#include "sources/menus/segyguessdialog.h"
#include "widgets/bringup.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <memory>
#include <new>

FirstLook::FirstLook(FirstLookBar* bar, Open open, QObject* parent) : QObject(parent), _bar(bar), _open(std::move(open))
{
    connect(bar, &FirstLookBar::settingsWanted, this, &FirstLook::use);
    connect(bar, &FirstLookBar::detailsWanted, this, &FirstLook::showDetails);
}

FirstLook::~FirstLook()
{
    for (QThread* thread : findChildren<QThread*>()) thread->wait();
}

void FirstLook::drop()
{
    ++_number;
    _bar->newFile();
    if (_dialog) _dialog->hide();
}

void FirstLook::look(const QString& path, const SegyLoadParm& told, const SegyReading& reading)
{
    if (_isUsing) return;
    const int number = ++_number;
    const auto found = std::make_shared<Found>();
    found->path = path;
    found->told = told;
    found->reading = reading;
    QThread* thread = QThread::create([found, guess = _guess] {
        try {
            std::string error;
            found->isRead = guess(QFile::encodeName(found->path).toStdString(), found->told, &found->guess, &error);
        } catch (const std::bad_alloc&) {
            found->isRead = false;
        }
    });
    thread->setParent(this);
    connect(thread, &QThread::finished, this, [this, thread, found, number] {
        thread->deleteLater();
        if (number == _number && found->isRead) take(*found);
    });
    thread->start(QThread::LowPriority);
}

void FirstLook::take(const Found& found)
{
    const std::string name = QFileInfo(found.path).fileName().toStdString();
    const SegyFirstLook look = firstLook(name, found.guess, found.told, found.reading);
    if (look.line.empty()) return;
    _found = found;
    // Under a dialog that waits for an answer nothing changes unasked.
    if (look.hasSettings && _bar->isAlways() && !QApplication::activeModalWidget()) {
        useUnasked();
        return;
    }
    emit offering(found.reading.isOpen);
    _bar->offerSettings(QString::fromStdString(look.line), look.hasSettings);
}

/// False when the file was refused with these settings, too.
bool FirstLook::use()
{
    const Found found = _found;
    _isUsing = true;
    const bool isOpen = _open(found.guess.parm);
    _isUsing = false;
    return isOpen;
}

void FirstLook::useUnasked()
{
    if (!use()) return;
    _bar->tellUsed(QFileInfo(_found.path).fileName() + tr(": opened with the settings that were guessed. ") +
                   QString::fromStdString(_found.guess.summary));
}

void FirstLook::showDetails()
{
    if (!_dialog) _dialog = new SegyGuessDialog(_bar->window());
    _dialog->setGuess(_found.path, _found.guess, _found.told, false);
    bringUp(_dialog);
}
