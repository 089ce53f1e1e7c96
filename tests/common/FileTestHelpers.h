#pragma once

#include <QFile>

namespace UtilsDllTest {

inline bool writeFile(const QString& path, const QByteArray& content = QByteArray("data"))
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

inline QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace UtilsDllTest
