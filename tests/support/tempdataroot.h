// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A data root in a temporary folder: the catalogue of companies and a folder for each company. While the
// object lives it is the current directory; afterwards the folder is gone and the former directory is current
// again. The company folders are empty: the program creates its stores in them.

#include <QList>
#include <QString>
#include <QTemporaryDir>

namespace testsupport {

class TempDataRoot
{
public:
    struct Company
    {
        QString number; ///< `MENUMEMPRESA`, and the folder's name after "Empresa"
        QString name;   ///< `MENOMBRE`
    };

    /// With the company 00012, "TALLERES DEL NORTE".
    TempDataRoot();
    /// With the companies given, which may be none.
    explicit TempDataRoot(const QList<Company>& companies);
    ~TempDataRoot();
    TempDataRoot(const TempDataRoot&) = delete;
    TempDataRoot& operator=(const TempDataRoot&) = delete;

    /// Adds a row to the catalogue's table `EMP`, and the company's folder.
    void addCompany(const Company& company);
    /// Adds a row without a folder. A null `QString` (not an empty one) leaves its column Null.
    void addCatalogueRow(const Company& company);

    /// Native path of the root, or of a file in it ("Empresa00012/Clientes.mdb").
    [[nodiscard]] QString path(const QString& relative = {}) const;
    /// The company's folder as the program writes it, with "\" at its end (what `RUTAEMPRESA` is).
    [[nodiscard]] QString companyPath(const QString& number = QStringLiteral("00012")) const;
    /// Native path of a file in the company's folder.
    [[nodiscard]] QString companyFile(const QString& name,
                                      const QString& number = QStringLiteral("00012")) const;
    /// The catalogue as the program writes its path.
    [[nodiscard]] static QString cataloguePath();

private:
    QString m_formerDirectory;
    QTemporaryDir m_directory;
};

} // namespace testsupport
