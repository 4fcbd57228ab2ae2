// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/icons.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <array>

namespace platform {

namespace {

constexpr std::array kSizes{16, 22, 32, 48};
/// Laid over a picture to light it up.
constexpr QColor kLight(255, 255, 255, 90);

/// Name in the icon theme, and the letter of the drawn picture that stands in where the theme has none.
struct IconSource
{
    Icon icon;
    const char* themeName;
    char letter;
};

constexpr std::array kSources{
    IconSource{Icon::New, "document-new", 'N'},
    IconSource{Icon::Save, "document-save", 'G'},
    IconSource{Icon::Mail, "mail-message-new", '@'},
    IconSource{Icon::Quit, "application-exit", 'S'},
    IconSource{Icon::Search, "edit-find", '?'},
    IconSource{Icon::Delete, "edit-delete", 'X'},
    IconSource{Icon::Print, "document-print", 'I'},
    IconSource{Icon::Preview, "document-print-preview", 'V'},
    IconSource{Icon::Send, "document-send", 'E'},
    IconSource{Icon::Client, "view-pim-contacts", 'F'},
    IconSource{Icon::Message, "dialog-messages", 'M'},
    IconSource{Icon::Report, "office-report", 'L'},
    IconSource{Icon::FolderClosed, "folder", 'C'},
    IconSource{Icon::FolderOpen, "folder-open", 'A'},
    IconSource{Icon::Note, "text-x-generic", 'n'},
    IconSource{Icon::Printer, "printer", 'P'},
    IconSource{Icon::Network, "network-server", 'R'},
    IconSource{Icon::FirstPage, "go-first", '|'},
    IconSource{Icon::PreviousPage, "go-previous", '<'},
    IconSource{Icon::NextPage, "go-next", '>'},
    IconSource{Icon::LastPage, "go-last", '/'},
    IconSource{Icon::Stop, "process-stop", 'x'},
    IconSource{Icon::Export, "document-save-as", 'e'},
    IconSource{Icon::Application, "preferences-system", 'O'},
    IconSource{Icon::ApplicationLit, "preferences-system", 'O'},
};

const IconSource& sourceOf(Icon name)
{
    for (const IconSource& source : kSources) {
        if (source.icon == name)
            return source;
    }
    return kSources.back();
}

QPixmap drawnPicture(char letter, int size)
{
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = QGuiApplication::palette().color(QPalette::WindowText);
    painter.setPen(QPen(ink, size / 16.0));
    painter.drawRoundedRect(QRectF(size * 0.1, size * 0.1, size * 0.8, size * 0.8), size * 0.15, size * 0.15);
    QFont font = painter.font();
    font.setPixelSize(size * 6 / 10);
    painter.setFont(font);
    painter.drawText(picture.rect(), Qt::AlignCenter, QString(QLatin1Char(letter)));
    return picture;
}

QIcon drawnIcon(char letter)
{
    QIcon result;
    for (const int size : kSizes)
        result.addPixmap(drawnPicture(letter, size));
    return result;
}

QIcon themedIcon(const IconSource& source)
{
    const QIcon themed = QIcon::fromTheme(QString::fromLatin1(source.themeName));
    return themed.isNull() ? drawnIcon(source.letter) : themed;
}

QIcon lighter(const QIcon& icon)
{
    QIcon result;
    for (const int size : kSizes) {
        QPixmap picture = icon.pixmap(QSize(size, size), qApp->devicePixelRatio());
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        painter.fillRect(QRect(0, 0, size, size), kLight);
        painter.end();
        result.addPixmap(picture);
    }
    return result;
}

} // namespace

QIcon icon(Icon name)
{
    QIcon ofProgram = QGuiApplication::windowIcon();
    if (name == Icon::ApplicationLit)
        return lighter(icon(Icon::Application));
    if (name == Icon::Application && !ofProgram.isNull())
        return ofProgram;
    return themedIcon(sourceOf(name));
}

QIcon untinted(const QIcon& icon)
{
    QIcon result;
    for (const int size : kSizes) {
        const QPixmap picture = icon.pixmap(QSize(size, size), qApp->devicePixelRatio());
        result.addPixmap(picture, QIcon::Normal);
        result.addPixmap(picture, QIcon::Selected);
    }
    return result;
}

} // namespace platform
