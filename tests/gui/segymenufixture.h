/// Small SEG-Y files with known headers, boxes that answer themselves, and a window's part of the SEG-Y menu.
#ifndef SEGYMENUFIXTURE_H
#define SEGYMENUFIXTURE_H

#include "host/report.h"
#include "host/signal/bytes.h"
#include "sources/menus/segymenudialog.h"
#include "sources/menus/segymenuhost.h"
#include "sources/segyloader.h"

#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

#include <memory>

/// Writes an integer into a file image, the highest byte first.
inline void put(QByteArray* bytes, int at, int nBytes, int value)
{
    for (int i = 0; i < nBytes; ++i) (*bytes)[at + i] = char(unsigned(value) >> (8 * (nBytes - 1 - i)));
}
inline void put32(QByteArray* bytes, int at, int value)
{
    put(bytes, at, 4, value);
}
inline void put16(QByteArray* bytes, int at, int value)
{
    put(bytes, at, 2, value);
}

/// A file with the highest byte first: 4 IEEE samples a trace at 2 ms, and six traces, of FFID 10, 10, 11, 11, 12,
/// 12, CHAN 1 and 2, CDP 101 to 106. The text says "C 1" to "C40" at the start of its lines. Reel fields 1 to 27
/// hold 1 to 27 but for sample count, interval, format and sort.
inline QByteArray segyBytes(int nTraces = 6)
{
    QByteArray file(3600, '\0');
    for (int i = 0; i < 40; ++i)
        file.replace(80 * i, 80, QString("C%1 line of text").arg(i + 1, 2).toLatin1().leftJustified(80));
    asciiToEbcdic(file.data(), 3200);
    for (int i = 0; i < 3; ++i) put32(&file, 3200 + 4 * i, 1 + i);
    for (int i = 0; i < 24; ++i) put16(&file, 3212 + 2 * i, 4 + i);
    put16(&file, 3216, 2000);
    put16(&file, 3220, 4);
    put16(&file, 3224, 5);
    put16(&file, 3228, 1);
    for (int i = 0; i < nTraces; ++i) {
        QByteArray trace(256, '\0');
        put32(&trace, 0, i + 1);
        put32(&trace, 8, 10 + i / 2);
        put32(&trace, 12, 1 + i % 2);
        put32(&trace, 20, 101 + i);
        put16(&trace, 28, 1);
        put16(&trace, 114, 4);
        put16(&trace, 116, 2000);
        put16(&trace, 178, -7);
        file += trace;
    }
    return file;
}

inline QString writeSegy(const QString& path, const QByteArray& bytes = segyBytes())
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("no test file");
    return path;
}

/// Accepts the message boxes that come up until it goes, and keeps their titles and texts. File dialogs are
/// answered with what `files` says.
class BoxWatcher : public QObject
{
public:
    BoxWatcher()
    {
        connect(&_timer, &QTimer::timeout, this, [this] {
            QWidget* modal = QApplication::activeModalWidget();
            if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                titles.append(box->windowTitle());
                texts.append(box->text());
                box->accept();
            } else if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
                titles.append(dialog->windowTitle());
                folders.append(dialog->directory().absolutePath());
                QStringList quoted;
                for (const QString& file : files) quoted.append('"' + file + '"');
                dialog->findChild<QLineEdit*>("fileNameEdit")
                    ->setText(files.size() == 1 ? files.first() : quoted.join(' '));
                static_cast<QDialog*>(dialog)->accept();
            }
        });
        _timer.start(10);
    }
    QStringList titles, texts, folders;
    QStringList files;

private:
    QTimer _timer;
};

/// Opens files as the window does, and keeps what was asked for.
class MenuHost : public SegyMenuHost
{
public:
    int segyLoadFromMenu() override
    {
        asked.append(dialog->loadParm());
        SegyLoadParm parm = asked.last();
        parm.remapTable = dialog->remapTable();
        auto next = SegyLoader::open(parm, &report);
        if (!next) return 0;
        dialog->buildConnections(next.get());
        next->dataLoaded();
        loader = std::move(next);
        return 1;
    }
    SegyLoader* segyLoader() const override { return loader.get(); }
    SegyLoadParm segyLoadParm() const override { return start; }

    struct Quiet : Report {
        void line(const std::string&) override {}
        void box(const std::string&, const std::string&) override {}
    } report;
    SegyLoadParm start;
    QList<SegyLoadParm> asked;
    std::unique_ptr<SegyLoader> loader;
    SegyMenuDialog* dialog = nullptr;
};

/// A menu over a stand-in window, shown.
struct MenuFixture {
    MenuHost host;
    std::unique_ptr<SegyMenuDialog> dialog;

    explicit MenuFixture(const SegyLoadParm& start = SegyLoadParm())
    {
        host.start = start;
        makeDialog();
    }
    void makeDialog()
    {
        dialog = std::make_unique<SegyMenuDialog>(&host);
        host.dialog = dialog.get();
        dialog->show();
    }
    template <class T>
    T* find(const char* name)
    {
        T* control = dialog->findChild<T*>(name);
        if (!control) qFatal("no control %s", name);
        return control;
    }
    QPlainTextEdit* text(const char* tab) { return find<QWidget>(tab)->findChild<QPlainTextEdit*>("textEdit"); }
    QComboBox* box(const char* name) { return find<QComboBox>(name); }
    QLineEdit* edit(const char* name) { return find<QLineEdit>(name); }
    void click(const char* button) { find<QPushButton>(button)->click(); }
    void showTab(int i) { find<QTabWidget>("tabWidget")->setCurrentIndex(i); }
    void open(const QString& file, int indexbuilt = 0)
    {
        edit("fileField")->setText(file);
        box("indexBox")->setCurrentIndex(indexbuilt);
        click("openButton");
        dialog->show();
    }
};

#endif
