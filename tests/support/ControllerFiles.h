#pragma once

#include <QFile>
#include <QString>
#include <QTemporaryDir>

// Files that ktrctl tests hand to the commands.

inline QString writeFile(const QTemporaryDir& dir, const QString& name, const QByteArray& bytes)
{
    QFile file(dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return {};
    return file.fileName();
}

// The virtual controller's factory parameters as a file, with size and VEL given.
inline QByteArray paraFile(const QString& size, int vel)
{
    return QStringLiteral("\"QM-KTR\",\"PRM\" 6 \"HOME\",5,1 30 30 %2 10 10 \"AXIS\",7,1 65535 2 400 0 20 2 \"%1L100\" "
                          "\"PG\",2,1 0 1000 \"ETC\",8,1 0 2 1000 2000 10 5 1 20 \"SPECIAL\",6,1 10 0 10 0 0 0 "
                          "\"RESERVED\",7,1 0 0 0 0 0 0 0 ")
        .arg(size)
        .arg(vel)
        .replace(u' ', QStringLiteral("\r\n"))
        .toLatin1();
}

// VEL 9000, ACC 1, DIR 1 in the file (not taken), 12 divisions, gear 1.
inline const QByteArray OpDataFile = "\"QM-B4\",\"Position\"\r\n\"\",\"NEW\"\r\n0,\"9000\",\"1\",\"\",\"\",\"1\",\"12\",\"1\",\"\"\r\n";
