#include "password_source.h"

#include <QFile>
#include <cstdio>
#include <termios.h>
#include <unistd.h>

namespace admin {

namespace {

QString firstLine(const QByteArray& bytes) {
    QByteArray line = bytes.left(bytes.indexOf('\n') < 0 ? bytes.size() : bytes.indexOf('\n'));
    if (line.endsWith('\r')) line.chop(1);
    return QString::fromUtf8(line);
}

PasswordResult prompt(const QString& text) {
    if (!::isatty(STDIN_FILENO))
        return {{},
                "No password: set QUILLORNE_PASSWORD, give --password-file, or run the tool at a "
                "terminal to be asked for it."};
    std::fputs(text.toLocal8Bit().constData(), stderr);
    std::fflush(stderr);
    termios before{};
    const bool terminal = ::tcgetattr(STDIN_FILENO, &before) == 0;
    if (terminal) {
        termios quiet = before;
        quiet.c_lflag &= ~tcflag_t(ECHO);
        quiet.c_lflag |= ECHONL;
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
    }
    QByteArray line;
    bool ended = false;
    for (int c; (c = std::fgetc(stdin)) != EOF;) {
        if (c == '\n') {
            ended = true;
            break;
        }
        line += char(c);
    }
    if (terminal) ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &before);
    if (!ended && line.isEmpty()) return {{}, "No password was typed."};
    return {firstLine(line), {}};
}

} // namespace

PasswordResult readPasswordFile(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {
            {},
            QStringLiteral("The password file %1 cannot be read: %2").arg(path, f.errorString())};
    return {firstLine(f.readAll()), {}};
}

PasswordResult readPassword(const QString& passwordFile, const QString& text) {
    if (!passwordFile.isEmpty()) return readPasswordFile(passwordFile);
    if (qEnvironmentVariableIsSet("QUILLORNE_PASSWORD"))
        return {qEnvironmentVariable("QUILLORNE_PASSWORD"), {}};
    return prompt(text);
}

} // namespace admin
