/// The dialog through which SEG-Y files are picked, opened and looked at.
#ifndef SEGYMENUDIALOG_H
#define SEGYMENUDIALOG_H

#include "sources/segyloadparm.h"
#include "sources/segyremaptable.h"

#include <QDialog>
#include <QPointer>

class QDialogButtonBox;
class QPushButton;
class QTabWidget;
class SegyBinaryMenu;
class SegyEbcdicMenu;
class SegyHeaderMenu;
class SegyLoader;
class SegyLoadMenu;
class SegyMenuHost;

/// Four tabs over the loader of the host's window. Reads no file by itself. Closing only hides it, and its fields
/// stay. The host is lent and outlives it; the loader may go at any time.
class SegyMenuDialog : public QDialog
{
    Q_OBJECT

public:
    explicit SegyMenuDialog(SegyMenuHost* host, QWidget* parent = nullptr);

    SegyLoadParm loadParm() const;
    void setLoadParm(const SegyLoadParm& parm);
    SegyRemapTable remapTable() const;
    /// Hands a new loader to the tabs, which then read what it has loaded, now or later.
    void buildConnections(SegyLoader* loader);
    bool isBuilt() const { return _isBuilt; }
    /// The last answer was to open, not to dismiss.
    bool isOpen() const { return _isOpen; }
    /// That opening has failed.
    bool isLoadFailed() const { return _isLoadFailed; }

public slots:
    void accept() override;
    void reject() override;
    void changeTab(int tab);

protected:
    /// The keys go to the tab in view, not to the button that has last closed the dialog.
    void showEvent(QShowEvent* event) override;

private slots:
    void loadTabs();
    void takeRemapRow(const QString& word, const QString& format, int startByte);

private:
    QPushButton* addButton(const QString& text, const char* name, const QString& tip, bool isDismiss = false);
    void makeButtons();

    SegyMenuHost* _host;
    QPointer<SegyLoader> _segyloader;
    QTabWidget* _tabWidget;
    SegyLoadMenu* _segyloadmenu;
    SegyEbcdicMenu* _segyebcdicmenu;
    SegyBinaryMenu* _segybinarymenu;
    SegyHeaderMenu* _segyheadermenu;
    QDialogButtonBox* _buttonBox;
    QPushButton *_openButton, *_loadButton, *_saveButton, *_editButton;
    bool _isOpen = false;
    bool _isBuilt = false;
    bool _isLoadFailed = false;
};

#endif
