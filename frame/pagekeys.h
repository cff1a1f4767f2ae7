/// Page Down and Page Up as Next and Previous.
#ifndef PAGEKEYS_H
#define PAGEKEYS_H

#include <QObject>

class QAction;

/// Watches the keys of a window while its option is on. A held key pages on; a repeat that has come in while a record
/// was loading is dropped, so that paging stops with the key.
class PageKeys : public QObject
{
public:
    /// @param window        owns this
    /// @param forward,back  what the keys trigger; a disabled action does nothing. Lent.
    PageKeys(QWidget* window, QAction* forward, QAction* back);

    /// The checkable option "options/pageKeys", off unless the settings say otherwise; owned by this.
    QAction* option() const { return _option; }

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void page(QAction* action, bool isRepeat);

    QAction* _forward;
    QAction* _back;
    QAction* _option;
    bool _isBusy = false;  // events from before the end of a load are still coming in
};

#endif
