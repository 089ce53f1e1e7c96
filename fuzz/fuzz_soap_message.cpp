// Feeds arbitrary bytes to QtSoapMessage::setContent, then reads the result the way
// the transport and its callers do, and writes it back out. Each input runs on a
// thread with a small stack: on the main thread's 8 MB a recursion must go thousands
// of levels deep to crash, far beyond the inputs a fuzzer tries, while a small stack
// shows it a little past the nesting limit that setContent enforces. The stack holds
// that limit with some room: 256 KB, doubled under AddressSanitizer, whose frames are
// about twice as large. Run with -dict=fuzz/fuzz_soap_message.dict.
#include "FuzzApplication.h"
#include "QtSoapMessage.h"

#include <QCoreApplication>
#include <QThread>

#include <cstddef>
#include <cstdint>

using VEXA_NAMESPACE::QtSoapMessage;
using VEXA_NAMESPACE::QtSoapType;

namespace {

#if defined(__SANITIZE_ADDRESS__)
const uint stackSize = 512 * 1024;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
const uint stackSize = 512 * 1024;
#else
const uint stackSize = 256 * 1024;
#endif
#else
const uint stackSize = 256 * 1024;
#endif

int walk(const QtSoapType& value, int depth)
{
    int visited = 1;
    if (depth > 64)
        return visited;
    for (int i = 0; i < value.count(); ++i)
        visited += walk(value[i], depth + 1);
    return visited + value.toString().size() % 2;
}

void parseAndUse(const QByteArray& input)
{
    QtSoapMessage message;
    const bool parsed = message.setContent(input);
    walk(message.returnValue(), 0);
    message.faultString().toString();
    message.faultDetail().count();
    if (!parsed || !message.isFault()) {
        // What the transport does to a reply with an unexpected status: writes a
        // fault into whatever body arrived.
        message.setFaultCode(QtSoapMessage::Client);
        message.addMethodArgument(QStringLiteral("a"), QString(), 1);
    }
    QtSoapMessage copy = message;
    copy.toXmlString(0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ensureQuietApplication("fuzz_soap_message");

    const QByteArray input(reinterpret_cast<const char*>(data), int(size));
    QScopedPointer<QThread> thread(QThread::create([&input] { parseAndUse(input); }));
    thread->setStackSize(stackSize);
    thread->start();
    thread->wait();
    return 0;
}
