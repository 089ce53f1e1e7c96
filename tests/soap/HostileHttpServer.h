// An HTTP server on the loopback, in the test process, that answers like a hostile or
// broken server: compression bombs, bodies or header lines that never end, a byte now
// and then. What it sends stops by itself once sendCap bytes have gone out.
#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <zlib.h>

#include <memory>

class HostileHttpServer : public QTcpServer
{
public:
    // For each request, once it has arrived whole: `head` (status line and headers,
    // ended or not), then `body`, one byte every `dripMsecs` when set, then `filler`
    // again and again while the client reads, if set; then the connection is closed.
    QByteArray head;
    QByteArray body;
    QByteArray filler;
    int dripMsecs = 0;
    QByteArray lastRequest;
    static constexpr qint64 sendCap = qint64(2) << 30;

    // A reply's head with the given extra header lines ("Name: value\r\n" each).
    static QByteArray replyHead(const QByteArray& headers)
    {
        return "HTTP/1.1 200 OK\r\nContent-Type: text/xml; charset=utf-8\r\nConnection: close\r\n" + headers + "\r\n";
    }

    // A stream in gzip's or zlib's ("deflate") format that inflates to `mebibytes` MiB
    // of blanks, about a thousand times its size. It is made of one compressed MiB,
    // flushed so that it stands alone, repeated; the trailer's checksum is combined
    // from that MiB's, so the bomb is valid and costs nothing to make.
    static QByteArray compressionBomb(bool gzip, int mebibytes)
    {
        const QByteArray blanks(1 << 20, ' ');
        QByteArray block(64 * 1024, '\0');
        z_stream stream = {};
        deflateInit2(&stream, 9, Z_DEFLATED, -MAX_WBITS, 9, Z_DEFAULT_STRATEGY); // raw: no header, no trailer
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(blanks.constData()));
        stream.avail_in = uInt(blanks.size());
        stream.next_out = reinterpret_cast<Bytef*>(block.data());
        stream.avail_out = uInt(block.size());
        deflate(&stream, Z_FULL_FLUSH); // ends on a byte, with no reference to what came before
        block.resize(block.size() - int(stream.avail_out));
        deflateEnd(&stream);

        const auto* bytes = reinterpret_cast<const Bytef*>(blanks.constData());
        const uLong blockCrc = crc32(0, bytes, uInt(blanks.size())), blockAdler = adler32(1, bytes, uInt(blanks.size()));
        uLong crc = blockCrc, adler = blockAdler;
        for (int i = 1; i < mebibytes; ++i) {
            crc = crc32_combine(crc, blockCrc, blanks.size());
            adler = adler32_combine(adler, blockAdler, blanks.size());
        }
        QByteArray bomb = gzip ? QByteArray("\x1f\x8b\x08\0\0\0\0\0\0\xff", 10) : QByteArray("\x78\xda");
        bomb += block.repeated(mebibytes);
        bomb += QByteArray("\x03\0", 2); // an empty final block
        const auto appendWord = [&bomb](quint32 word, bool littleEndian) {
            for (int i = 0; i < 4; ++i)
                bomb += char(word >> (littleEndian ? 8 * i : 24 - 8 * i));
        };
        if (gzip) {
            appendWord(quint32(crc), true);
            appendWord(quint32(qint64(mebibytes) << 20), true); // the size modulo 2^32
        } else {
            appendWord(quint32(adler), false);
        }
        return bomb;
    }

protected:
    void incomingConnection(qintptr descriptor) override
    {
        auto* socket = new QTcpSocket(this);
        socket->setSocketDescriptor(descriptor);
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::readyRead, socket, [this, socket, in = QByteArray(), answered = false]() mutable {
            in += socket->readAll();
            const int headerEnd = in.indexOf("\r\n\r\n");
            if (answered || headerEnd < 0 || in.size() < headerEnd + 4 + lengthOf(in.left(headerEnd)))
                return;
            answered = true;
            lastRequest = in;
            answer(socket);
        });
    }

private:
    static int lengthOf(const QByteArray& headers)
    {
        for (const QByteArray& line : headers.split('\n'))
            if (line.toLower().startsWith("content-length:"))
                return line.mid(15).trimmed().toInt();
        return 0;
    }

    void answer(QTcpSocket* socket)
    {
        socket->write(head);
        if (dripMsecs > 0) {
            auto* timer = new QTimer(socket);
            connect(timer, &QTimer::timeout, socket, [this, socket, timer, sent = 0]() mutable {
                if (sent < body.size()) {
                    socket->write(body.mid(sent++, 1));
                    return;
                }
                timer->stop();
                finish(socket);
            });
            timer->start(dripMsecs);
            return;
        }
        socket->write(body);
        finish(socket);
    }

    // Sends the filler as fast as the client takes it, at most sendCap bytes, then closes.
    void finish(QTcpSocket* socket)
    {
        if (filler.isEmpty()) {
            socket->disconnectFromHost();
            return;
        }
        const auto sent = std::make_shared<qint64>(0);
        const auto refill = [this, socket, sent] {
            while (socket->bytesToWrite() < (1 << 20) && *sent < sendCap) {
                socket->write(filler);
                *sent += filler.size();
            }
            if (*sent >= sendCap)
                socket->disconnectFromHost();
        };
        connect(socket, &QTcpSocket::bytesWritten, socket, refill);
        refill();
    }
};
