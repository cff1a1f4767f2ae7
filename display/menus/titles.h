/// The dialog "Titles": what stands around the plots of a main window.
#ifndef TITLES_H
#define TITLES_H

#include <QDialog>

class DisplayList;
class DrawStyle;
class QCheckBox;
class QLabel;
class QLineEdit;
class QStatusBar;
class QVBoxLayout;

/// A title in the status bar, the title and the numbers of the vertical axis, and the window's own title. Each
/// control acts at once.
class Titles : public QDialog
{
    Q_OBJECT

public:
    /// The list and the status bar, which is that of the displays, are lent and outlive the use of the dialog.
    Titles(QWidget* parent, const DisplayList* displaylist, QStatusBar* statusBar);

signals:
    /// The main title is to show area and line, or not.
    void areaLineTitleWanted(bool on);

public slots:
    /// Puts the title into the status bar, or takes it out.
    void applyTitle(int state);
    void changeTitle();
    void changeVerticalTitle();
    void showVAxisValues(int state);
    void showALTitle(int state);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void makeStatusTitle(QVBoxLayout* column);
    void makeAxisTitle(QVBoxLayout* column);
    void makeAreaLineTitle(QVBoxLayout* column);
    void setColor();
    void setFont();
    void fitTitle();
    void showAxisTitle();

    QLineEdit* _titleVEdit;  // all controls are children
    QLineEdit* _titleEdit;
    QCheckBox* _titleVBox;
    QCheckBox* _enabBox;
    QCheckBox* _areaBox;
    DrawStyle* _style;
    QLabel* _titleLabel;  // child, or of the status bar while it stands there
    const DisplayList* _displaylist;
    QStatusBar* _statusBar;
    bool _enableTitle = false;
};

#endif
