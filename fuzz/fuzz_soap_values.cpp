// Drives the value-tree API from the fuzz bytes: each byte picks an operation on a
// small pool of values (build scalars, arrays and structs, insert at positions, copy,
// iterate, index, serialise, parse back). What must hold whatever the sequence is
// checked with abort(): an iterator walks every stored item once and then stops,
// even over a container copied after it was made, and a message built of these values
// serialises to well-formed XML. Arrays are never put into arrays: an array whose
// first item is a non-empty array makes arrayTypeString loop by design.
#include "FuzzApplication.h"
#include "QtSoapArray.h"
#include "QtSoapMessage.h"
#include "QtSoapStruct.h"
#include "QtSoapTypeFactory.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QSet>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

using namespace VEXA_NAMESPACE;

namespace {

class Bytes
{
public:
    Bytes(const uint8_t* data, size_t size) : data(data), size(size) {}
    bool atEnd() const { return position >= size; }
    int next() { return position < size ? data[position++] : 0; }
    int small() { return next() % 7 - 1; } // -1 to 5: positions and sizes stay far from overflow
    QtSoapQName name()
    {
        // Only names and namespaces that make valid XML: an unregistered namespace
        // gives an empty prefix, and so a qualified name that starts with a colon.
        static const char* const names[] = {"a", "item", "Body", "Envelope", "Fault", "Faultcode", "array", "x"};
        static const char* const uris[] = {"", "http://schemas.xmlsoap.org/soap/envelope/",
                                           "http://schemas.xmlsoap.org/soap/encoding/", "http://www.w3.org/1999/XMLSchema"};
        const int pick = next();
        return QtSoapQName(QLatin1String(names[pick % 8]), QLatin1String(uris[(pick / 8) % 4]));
    }
    QString text()
    {
        static const char alphabet[] = "a<&>\"' 1-\xe9\n";
        QString result;
        for (int length = next() % 8; length > 0; --length)
            result += QChar::fromLatin1(alphabet[next() % (sizeof(alphabet) - 1)]);
        return result;
    }

private:
    const uint8_t* data;
    size_t size;
    size_t position = 0;
};

QtSoapType* shallowCopy(const QtSoapType& value)
{
    if (auto* array = dynamic_cast<const QtSoapArray*>(&value))
        return new QtSoapArray(*array);
    if (auto* members = dynamic_cast<const QtSoapStruct*>(&value))
        return new QtSoapStruct(*members);
    if (auto* scalar = dynamic_cast<const QtSoapSimpleType*>(&value))
        return new QtSoapSimpleType(*scalar);
    return new QtSoapType(value);
}

// The items an iterator visits, made before the container is copied; aborts unless it
// visits each stored item once and then stays at the end.
int iterate(QtSoapType& value)
{
    if (auto* array = dynamic_cast<QtSoapArray*>(&value)) {
        QtSoapArrayIterator it(*array);
        const QtSoapArray copy(*array);
        QSet<int> keys;
        for (; !it.atEnd(); ++it) {
            if (!it.data() || it.current() != it.data() || keys.contains(it.pos()) || keys.size() > array->count())
                std::abort();
            int positions[5] = {};
            it.pos(&positions[0], &positions[1], &positions[2], &positions[3], &positions[4]);
            keys.insert(it.pos());
        }
        if (keys.size() != copy.count() || it.data())
            std::abort();
        return keys.size();
    }
    if (auto* members = dynamic_cast<QtSoapStruct*>(&value)) {
        QtSoapStructIterator it(*members);
        const QtSoapStruct copy(*members);
        int visited = 0;
        for (; it.data(); ++it) {
            if (it.current() != it.data() || ++visited > members->count())
                std::abort();
            it.key();
        }
        ++it;
        if (visited != copy.count() || it.data())
            std::abort();
        return visited;
    }
    return 0;
}

// Nodes below a value, counted up to a budget, so that a tree grown by inserting
// copies into themselves is not serialised at exponential cost.
int nodes(QtSoapType& value, int budget)
{
    int total = 1;
    if (auto* array = dynamic_cast<QtSoapArray*>(&value)) {
        QtSoapArray copy(*array);
        for (QtSoapArrayIterator it(copy); !it.atEnd() && total < budget; ++it)
            total += nodes(*it.data(), budget - total);
    } else if (auto* members = dynamic_cast<QtSoapStruct*>(&value)) {
        QtSoapStruct copy(*members);
        for (QtSoapStructIterator it(copy); it.data() && total < budget; ++it)
            total += nodes(*it.data(), budget - total);
    }
    return total;
}

void serialise(const QtSoapType& value, const QtSoapQName& method)
{
    QDomDocument elementDoc;
    const QDomElement element = value.toDomElement(elementDoc);
    elementDoc.appendChild(element);
    QtSoapTypeFactory::instance().soapType(element);

    QtSoapMessage message;
    message.setMethod(method);
    message.addMethodArgument(shallowCopy(value));
    const QString written = message.toXmlString(0);
    QDomDocument check;
    if (!check.setContent(written, true))
        std::abort();
    QtSoapMessage back;
    back.setContent(written.toUtf8());
    back.returnValue().toString();
    back.toXmlString(0);
}

bool stores(QtSoapArray& array, const QtSoapType* item)
{
    for (QtSoapArrayIterator it(array); !it.atEnd(); ++it) {
        if (it.data() == item)
            return true;
    }
    return false;
}

// Puts the item into the container; returns false if it was refused and so is still ours.
bool insertInto(QtSoapType& container, QtSoapType* item, Bytes& bytes)
{
    if (auto* members = dynamic_cast<QtSoapStruct*>(&container)) {
        members->insert(item);
        return true;
    }
    auto* array = dynamic_cast<QtSoapArray*>(&container);
    if (!array || item->type() == QtSoapType::Array)
        return false;
    const int p[5] = {bytes.small(), bytes.small(), bytes.small(), bytes.small(), bytes.small()};
    switch (bytes.next() % 6) {
    case 0: array->append(item); break;
    case 1: array->insert(p[0], item); break;
    case 2: array->insert(p[0], p[1], item); break;
    case 3: array->insert(p[0], p[1], p[2], item); break;
    case 4: array->insert(p[0], p[1], p[2], p[3], item); break;
    default: array->insert(p[0], p[1], p[2], p[3], p[4], item); break;
    }
    return stores(*array, item);
}

void touch(const QtSoapType& value, Bytes& bytes)
{
    const QtSoapType& found = bytes.next() % 2 ? value[bytes.small()] : value[bytes.name()];
    found.toString();
    found.value();
    if (auto* array = dynamic_cast<const QtSoapArray*>(&value))
    {
        const int p[3] = {bytes.small(), bytes.small(), bytes.small()};
        array->at(p[0], p[1], p[2]).isValid();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ensureQuietApplication("fuzz_soap_values");
    static const bool namespacesRegistered = (QtSoapMessage(), true); // the first message fills the table
    Q_UNUSED(namespacesRegistered);

    Bytes bytes(data, size);
    std::vector<QtSoapType*> pool;
    static const QtSoapType::Type elementTypes[] = {QtSoapType::Int, QtSoapType::String, QtSoapType::Boolean,
                                                    QtSoapType::Struct, QtSoapType::Other, QtSoapType::Array};
    while (!bytes.atEnd()) {
        const int operation = bytes.next() % 14;
        if (operation < 6 && pool.size() >= 16)
            continue;
        if (operation >= 6 && pool.empty())
            continue;
        QtSoapType* top = pool.empty() ? nullptr : pool.back();
        switch (operation) {
        case 0: {
            // One read per statement: argument order differs between compilers, and a
            // committed input must replay the same everywhere.
            const QtSoapQName valueName = bytes.name();
            pool.push_back(new QtSoapSimpleType(valueName, bytes.small()));
            break;
        }
        case 1: {
            const QtSoapQName valueName = bytes.name();
            pool.push_back(new QtSoapSimpleType(valueName, bytes.text()));
            break;
        }
        case 2: {
            const QtSoapQName valueName = bytes.name();
            pool.push_back(new QtSoapSimpleType(valueName, bytes.next() % 2 == 0, 0));
            break;
        }
        case 3: pool.push_back(new QtSoapStruct(bytes.name())); break;
        case 4: {
            // Sizes of -1 or 1 to 5: a zero size would divide by zero, which the array does not guard.
            int sizes[5];
            for (int& s : sizes)
                s = bytes.next() % 6 == 0 ? -1 : bytes.next() % 5 + 1;
            const QtSoapQName arrayName = bytes.name();
            pool.push_back(new QtSoapArray(arrayName, elementTypes[bytes.next() % 6], sizes[0], sizes[1], sizes[2], sizes[3], sizes[4]));
            break;
        }
        case 5:
            if (bytes.next() % 2)
                pool.push_back(new QtSoapArray());
            else
                pool.push_back(new QtSoapSimpleType(bytes.name()));
            break;
        case 6:
            if (pool.size() >= 2) {
                pool.pop_back();
                if (!insertInto(*pool.back(), top, bytes))
                    delete top;
            }
            break;
        case 7:
            if (pool.size() < 16)
                pool.push_back(shallowCopy(*top));
            break;
        case 8: iterate(*top); break;
        case 9: touch(*top, bytes); break;
        case 10: {
            const QtSoapQName method = bytes.name();
            if (nodes(*top, 2000) < 2000)
                serialise(*top, method);
            break;
        }
        case 11: top->clear(); break;
        case 12:
            pool.pop_back();
            delete top;
            break;
        default:
            std::swap(pool.back(), pool[size_t(bytes.next()) % pool.size()]);
            break;
        }
    }
    for (QtSoapType* value : pool)
        delete value;
    return 0;
}
