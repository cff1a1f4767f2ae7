/// Pictures of ensembles, kept in memory to be flipped through.
#ifndef IMAGESTORAGE_H
#define IMAGESTORAGE_H

#include <QBitmap>
#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QString>

#include <qwt_scale_map.h>

#include <cstdint>
#include <memory>
#include <vector>

class Report;
class ServerPicture;

/// A picture with the maps that it was rendered by and what its axes say; all of it goes and comes together.
struct StoredPicture {
    QImage image;  ///< one of the three kinds is set
    QPixmap pixmap;
    QBitmap bitmap;
    QwtScaleMap xMap, yMap;   ///< traces and ms; the paint intervals are pixels of the picture
    std::vector<float> axis;  ///< secondary key of trace i, from 1, at index i; nTraces + 1 values
    int nTraces = 0;
    float pri = 0.0f;             ///< primary key
    float panel = 0.0f;           ///< velocity of a constant-velocity panel
    QString parm;                 ///< text of the parameter test
    bool isSaved = false;         ///< already written to a file
    const void* owner = nullptr;  ///< the display that it is of; only compared
    int64_t nBytes = 0;
    mutable std::shared_ptr<const ServerPicture> server;  ///< the X server's copy, made when it is first shown
    mutable bool hasTriedServer = false;                  ///< the server was asked for a copy

    QSize size() const;
    /// Whichever kind it is, as an image.
    QImage toImage() const;
};

/// The store of a main window, shared by its displays. Also counts a collection: so many pictures in a row.
/// Main thread only.
class ImageStorage : public QObject
{
    Q_OBJECT

public:
    explicit ImageStorage(QObject* parent = nullptr);
    ~ImageStorage() override;

    /// Store a picture at the end, or in the place of the one that its owner has removed last; putAxis goes on
    /// with that one.
    void putImage(const QImage& image, const QwtScaleMap& xMap, const QwtScaleMap& yMap, const void* owner = nullptr);
    void putPixmap(const QPixmap& pixmap, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                   const void* owner = nullptr);
    void putBitmap(const QBitmap& bitmap, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                   const void* owner = nullptr);
    /// @param axis  n + 1 values, copied; the first isn't used
    void putAxis(const float* axis, int n, float pri, float pan, const QString& parm);

    /// Null where i, from 0, is no picture, or is one of another kind; valid until the store changes.
    const QImage* getImage(int i) const;
    const QPixmap* getPixmap(int i) const;
    const QBitmap* getBitmap(int i) const;
    /// Maps without extent where i is no picture.
    QwtScaleMap getXMap(int i) const;
    QwtScaleMap getYMap(int i) const;
    /// The n + 1 axis values of a picture; null, and nothing set, where i is none.
    const float* getAxis(int i, int* n, float* pri, float* pan, QString* parm) const;
    /// All of it; null where i is no picture.
    const StoredPicture* picture(int i) const;

    /// Removes the last picture, or with an owner the last of that owner; nothing if there is none.
    void removeLastImage(const void* owner = nullptr);
    void removeAll();

    /// Switches the store on or off.
    void setStored(bool on);
    bool isStored() const { return _dostore; }
    /// Switches collecting on or off.
    void setCollect(bool on) { _docollect = on; }
    bool isCollecting() const { return _docollect; }
    /// How many to collect.
    void setCollectTotal(int n) { _icollect = n; }
    int collectTotal() const { return _icollect; }
    /// Pictures collected since the count was last set.
    void setCount(int n) { _icount = n; }
    /// The collection has its pictures: the next one starts from 0.
    void endCollection();
    int count() const { return _icount; }
    /// Keeps the first n pictures only.
    void setStoreTotal(int n);
    /// Pictures held.
    int storeTotal() const { return int(_pictures.size()); }

    /// Whether pictures are written to files too.
    void setSaved(bool on) { _doSave = on; }
    bool isSaved() const { return _doSave; }
    void setSavedFile(const QString& name) { _saveFile = name; }
    const QString& savedFile() const { return _saveFile; }
    /// All pictures count as not yet written.
    void setSavedClear();
    /// The first picture that was not yet written, from now on marked as written; -1 if there is none, or, with
    /// check, if writing is off or no file was named.
    int performSaveFile(bool check);
    /// A picture's file could not be written after all.
    void setUnsaved(int i);
    /// The picture that was stored last; 0 before there is one.
    int newest() const { return int(_last); }
    /// Takes the lines about files that can't be written; lent. At first they go to standard output.
    void setReport(Report* report) { _report = report; }
    /// Writes each picture that was not yet written, but for the last `except`, and marks those whose file
    /// stands. A failure is a line of the report.
    void performSaveFile2(int except = 0);

    /// Most bytes to hold; at first a quarter of the machine's memory.
    void setLimit(int64_t nBytes) { _limit = nBytes; }
    /// Whether a picture of so many bytes still fits, with an owner in the place of that owner's last.
    bool hasRoom(int64_t nBytes, const void* replaced = nullptr) const;
    /// A picture doesn't fit: switches store and collection off, and says so.
    void stop();

signals:
    /// Pictures came or went.
    void totalChanged();
    void storedChanged(bool on);
    /// A collection has its pictures.
    void collected();
    /// The memory is full; no more pictures are stored.
    void full();

private:
    void put(StoredPicture picture);
    void forget(size_t i);
    int lastOf(const void* owner) const;

    std::vector<StoredPicture> _pictures;
    size_t _last = 0;                   // index of the one put last
    const void* _emptyOwner = nullptr;  // of the picture removed last
    size_t _emptyPlace = 0;             // where it stood
    bool _emptyWasCounted = false;      // in _icount; one of the collection before isn't
    int _icount = 0;
    bool _dostore = false;
    bool _docollect = false;
    int _icollect = 0;
    bool _doSave = false;
    QString _saveFile;
    Report* _report;
    int64_t _nBytes = 0;
    int64_t _limit;
};

/// Memory that a picture of this size takes in the store, with its copy at the X server if there is one.
int64_t storedBytes(const QSize& size);

/// The file of a picture, counted from 1: "a.tif" and 1 give "a-001.tif". A name without suffix gets "png", an
/// empty one is "junk".
QString numberedName(const QString& name, int number);

/// Writes a picture in the format of the name's suffix. A failure is false and a line of the report.
bool savePictureFile(const QPixmap& pixmap, const QString& name, Report* report);

#endif
