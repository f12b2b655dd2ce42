#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

class QSocketNotifier;

// The master side of a pseudo-terminal: a reader opens slavePath() as if it were a serial
// device, and what write() is given comes out there. Writes never block: what the terminal
// cannot take at once waits in a queue that a write notifier empties.
//
// We hold a slave descriptor of our own for as long as the terminal is open. Without it the
// master reports hang-up whenever no reader has the slave open (its read side then wakes the
// event loop for ever), and the raw settings could be lost between readers. The price: while
// nobody reads, data piles up in the terminal (about 20 KB) and then in our queue, which is
// bounded by MaxQueuedBytes; beyond it new data is dropped, as a line with no listener loses
// it. discardPending() empties both, for a fresh start.
class PtyServer : public QObject {
    Q_OBJECT
public:
    static constexpr qint64 MaxQueuedBytes = 64 * 1024;

    explicit PtyServer(QObject* parent = nullptr);
    ~PtyServer() override;

    // Opens a new terminal pair in raw mode at 4800 baud; false with *error saying why.
    bool open(QString* error = nullptr);
    void close();
    bool isOpen() const { return master_ >= 0; }
    // "/dev/pts/N" while open.
    QString slavePath() const { return slavePath_; }

    void write(const QByteArray& data);
    // Waiting in our queue, not yet taken by the terminal.
    qint64 queuedBytes() const { return queue_.size() - queueOffset_; }
    // Taken by the terminal but not yet read by anyone on the slave side.
    int unreadBytes() const;
    qint64 droppedBytes() const { return dropped_; }
    // Forgets our queue and whatever the terminal holds unread.
    void discardPending();

signals:
    void bytesWritten(qint64 count);
    // The queue has emptied.
    void drained();

private:
    void flushQueue();
    void drainMaster();

    int master_ = -1;
    int slave_ = -1;
    QString slavePath_;
    QByteArray queue_;
    qint64 queueOffset_ = 0;
    qint64 dropped_ = 0;
    QSocketNotifier* writeNotifier_ = nullptr;
    QSocketNotifier* readNotifier_ = nullptr;
};
