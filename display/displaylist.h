/// The displays of a window, told to everybody who has to follow them.
#ifndef DISPLAYLIST_H
#define DISPLAYLIST_H

#include <QList>
#include <QObject>

class SeismicDisplay;

/// An ordered list of displays, each in it once, that tells what comes and goes. Owns none of them: who deletes a
/// display takes it out first.
class DisplayList : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    const QList<SeismicDisplay*>& all() const { return _displays; }
    bool isEmpty() const { return _displays.isEmpty(); }
    int size() const { return _displays.size(); }
    /// @param i  from 0, below size()
    SeismicDisplay* operator[](int i) const { return _displays[i]; }
    SeismicDisplay* first() const { return _displays.first(); }
    SeismicDisplay* last() const { return _displays.last(); }
    /// For loops over all; a display may not come or go meanwhile.
    QList<SeismicDisplay*>::const_iterator begin() const { return _displays.cbegin(); }
    QList<SeismicDisplay*>::const_iterator end() const { return _displays.cend(); }

    /// Adds a display behind the last one; one that is in the list already stays where it is.
    void append(SeismicDisplay* display) { insert(size(), display); }
    /// The same in front of place i, from 0 to size().
    void insert(int i, SeismicDisplay* display);
    /// Takes the display at place i, from 0, out.
    SeismicDisplay* takeAt(int i);
    SeismicDisplay* takeLast() { return takeAt(size() - 1); }
    void removeAt(int i) { takeAt(i); }
    /// Takes all out, the last one first.
    void clear();

signals:
    /// The display is in the list.
    void added(SeismicDisplay* display);
    /// The display has left the place, counted from 0, that it had.
    void removed(SeismicDisplay* display, int place);

private:
    QList<SeismicDisplay*> _displays;
};

#endif
