// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/spanishtexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <array>
#include <string_view>

namespace platform {

namespace {

struct Text
{
    std::string_view context; ///< class of the toolkit that shows it
    std::string_view source;  ///< as the toolkit has it
    QStringView spanish;
};

constexpr std::array kTexts{
    // Kinds of files, in the list of a file dialog.
    Text{"QAbstractFileIconProvider", "Alias", u"Acceso directo"},
    Text{"QAbstractFileIconProvider", "Drive", u"Unidad"},
    Text{"QAbstractFileIconProvider", "File", u"Archivo"},
    Text{"QAbstractFileIconProvider", "File Folder", u"Carpeta de archivos"},
    Text{"QAbstractFileIconProvider", "Folder", u"Carpeta"},
    Text{"QAbstractFileIconProvider", "Shortcut", u"Acceso directo"},
    Text{"QAbstractFileIconProvider", "Unknown", u"Desconocido"},
    // The packaged text lacks a letter.
    Text{"QFileDialog", "Go to the parent directory", u"Ir al directorio superior"},

    // Its letter is that of another entry of the same menu.
    Text{"QAbstractSpinBox", "Step &down", u"Dis&minuir"},

    // What a print server asks that wants to know who prints.
    Text{"QCupsPrinterSupport", "Authentication Needed", u"Identificación"},
    Text{"QCupsPrinterSupport", "Authentication needed to use %1 on %2.",
         u"Para usar %1 en %2 hay que identificarse."},
    Text{"QCupsPrinterSupport", "Authentication needed to use %1.", u"Para usar %1 hay que identificarse."},
    Text{"QCupsPrinterSupport", "Password:", u"Contraseña:"},
    Text{"QCupsPrinterSupport", "Username:", u"Usuario:"},

    // The print dialog.
    Text{"Print Device Input Slot", "Automatic", u"Automática"},
    Text{"Print Device Output Bin", "Automatic", u"Automática"},
    Text{"QPrintDialog",
         "%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' to define "
         "ranges and make sure ranges do not intersect with each other.",
         u"%1 no está bien escrito. Separe las páginas con «,», escriba los intervalos con «-» y no repita "
         u"páginas."},
    Text{"QPrintDialog", "Duplex Settings Conflicts", u"Impresión a doble cara"},
    Text{"QPrintDialog", "Invalid Pages Definition", u"Páginas mal escritas"},
    Text{"QPrintDialog", "There are conflicts in duplex settings. Do you want to fix them?",
         u"La elección de doble cara no es posible. ¿Desea corregirla?"},
    Text{"QPrintPropertiesDialog", "Advanced Option Conflicts", u"Opciones avanzadas"},
    Text{"QPrintPropertiesDialog", "Page Setup Conflicts", u"Configuración de página"},
    Text{"QPrintPropertiesDialog", "There are conflicts in page setup options. Do you want to fix them?",
         u"La configuración de página no es posible. ¿Desea corregirla?"},
    Text{"QPrintPropertiesDialog", "There are conflicts in some advanced options. Do you want to fix them?",
         u"Algunas opciones avanzadas no son posibles. ¿Desea corregirlas?"},
    Text{"QPrintPropertiesWidget", "Advanced", u"Avanzado"},
    Text{"QPrintPropertiesWidget", "There are conflicts in some options. Please fix them.",
         u"Algunas opciones no son posibles a la vez. Corríjalas."},
    Text{"QPrintSettingsOutput", "Double Sided Printing", u"Impresión a doble cara"},
    Text{"QPrintSettingsOutput", "Long side binding", u"Por el lado largo"},
    Text{"QPrintSettingsOutput", "Off", u"No"},
    Text{"QPrintSettingsOutput", "Pages", u"Páginas"},
    Text{"QPrintSettingsOutput", "Short side binding", u"Por el lado corto"},
    Text{"QPrintSettingsOutput",
         "Specify pages or ranges separated by commas. Ranges are specified by two numbers separated by a "
         "hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
         u"Escriba páginas o intervalos separados por comas; un intervalo son dos números con un guion. "
         u"Por ejemplo, 3,5-7,9 imprime las páginas 3, 5, 6, 7 y 9."},

    // Keys as the manual and Spanish keyboards call them.
    Text{"QShortcut", "Backspace", u"Retroceso"},
    Text{"QShortcut", "Control", u"Ctrl"},
    Text{"QShortcut", "Ctrl", u"Ctrl"},
    Text{"QShortcut", "Del", u"Supr"},
    Text{"QShortcut", "Esc", u"Esc"},
    Text{"QShortcut", "Ins", u"Insert"},
    Text{"QShortcut", "PgDown", u"AvPág"},
    Text{"QShortcut", "PgUp", u"RePág"},
    Text{"QShortcut", "Return", u"Intro"},
    Text{"QShortcut", "Shift", u"Mayús"},
    Text{"QShortcut", "Tab", u"Tab"},

    // Kinds of objects, as a screen reader says them.
    Text{"QSpiAccessibleBridge", "desktop", u"escritorio"},
    Text{"QSpiAccessibleBridge", "notification", u"notificación"},
    Text{"QSpiAccessibleBridge", "terminal", u"terminal"},
};

class OurTexts final : public QTranslator
{
public:
    using QTranslator::QTranslator;

    [[nodiscard]] bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* source, const char* /*disambiguation*/,
                      int /*number*/) const override
    {
        const auto* const found = std::ranges::find_if(
            kTexts, [context = std::string_view(context), source = std::string_view(source)](
                        const Text& text) { return text.source == source && text.context == context; });
        return found == kTexts.end() ? QString() : found->spanish.toString();
    }
};

} // namespace

bool installSpanishTexts()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    bool allLoaded = true;
    for (const QString& file : {QStringLiteral("qt_es"), QStringLiteral("qtbase_es")}) {
        auto* translator = new QTranslator(qApp);
        if (translator->load(file, folder))
            QCoreApplication::installTranslator(translator);
        else
            allLoaded = false;
    }
    QCoreApplication::installTranslator(new OurTexts(qApp)); // asked first, being the last
    return allLoaded;
}

} // namespace platform
