/// The tab "Image" of the parameter menu: storing pictures, and showing them one by one or as a movie.
#ifndef IMAGEDIALOG_H
#define IMAGEDIALOG_H

#include <QDialog>
#include <QList>
#include <QVector>

class DisplayList;
class ImageStorage;
class NumberEdit;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;
class QTimer;
class SeismicDisplay;

/// Drives the store and the displays of a window. With several displays side by side picture i goes to the first,
/// i + 1 to the next.
class ImageDialog : public QDialog
{
    Q_OBJECT

public:
    /// Both are lent and outlive the dialog.
    ImageDialog(ImageStorage* imgstore, const DisplayList* displaylist, QWidget* parent = nullptr);

    /// Brings the slider up to the store's count.
    void checkCount();
    /// Whether pictures are shown in place of the data; a new ensemble ends it.
    void setDoView(bool on);
    /// The same for the window's box: nothing is emitted.
    void changeViewFlag(bool on);
    bool isPlaying() const;

public slots:
    void changeStore(int state);
    void resaveImage();
    void saveExtraImage();
    void clearImage();
    void setCollect();
    void changeView(int state);
    void changeSliderImage(double value);
    void changeSliderSpeed(double value);
    void startLoop();
    void endLoop();
    void changeSelect(int state);
    void changeImage();
    void changeFileStore(int state);
    void fileImage();

signals:
    /// The user wants pictures in place of the data, or the data again.
    void viewChanged(bool on);
    /// A picture, counted from 1, is on the screen.
    void changeImage(int number);

private slots:
    void imageLoop();

private:
    QGroupBox* makeSaveGroup();
    QGroupBox* makeViewGroup();
    QGroupBox* makeMovieGroup();
    QGroupBox* makeSelectGroup();
    QGroupBox* makeFileGroup();
    void connectControls();
    void followDisplay(SeismicDisplay* display);
    QList<SeismicDisplay*> displays() const;
    void showFrom(int i);
    void showNumber(int number);
    void showStored(bool on);
    void takeFile(const QString& name);
    void writeHeld();
    void enableButtons();
    void keyPressEvent(QKeyEvent* event) override;

    QSlider* _imgSlider;  // all controls are children of this dialog
    QLabel* _imgLabel;
    QSlider* _spdSlider;
    QLabel* _spdLabel;
    QLineEdit* _fileField;
    NumberEdit* _collectEdit;
    QCheckBox* _viewBox;
    QCheckBox* _storeBox;
    QCheckBox* _fileBox;
    QCheckBox* _selectBox;
    QLineEdit* _selectField;
    QPushButton* _resaveButton;
    QPushButton* _clearButton;
    QPushButton* _saveButton;
    QPushButton* _playButton;
    QPushButton* _stopButton;
    QPushButton* _fileButton;
    QGroupBox* _groupBox1;
    QGroupBox* _groupBox2;
    QGroupBox* _groupBox3;
    QGroupBox* _groupBox4;
    QGroupBox* _groupBox5;

    ImageStorage* _imgstore;          // lent
    const DisplayList* _displaylist;  // lent
    int _icount = 0;                  // pictures that the slider knows of
    int _ispeed = 200;                // ms between two pictures
    double _isvalue = 1;              // of the slider
    bool _doView = false;
    bool _inLoop = false;
    int _iloop = 0;  // picture of the first display at the next step
    QTimer* _timer;
    QVector<int> _imageArray;  // counted from 1
    QString _oldFile;
};

#endif
