// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/failurewords.h"

#include "platform/core/failurenumbers.h"

#include <algorithm>
#include <array>

namespace shell {

namespace {

using namespace platform;

struct Words
{
    int number;
    QStringView text;
};

constexpr std::array kWords{
    Words{kInvalidProcedureCall, u"Se ha pedido algo con un valor que no se admite."},
    Words{kOverflow, u"Un número es demasiado grande."},
    Words{kSubscriptOutOfRange, u"Se ha pedido un elemento que no está en la lista."},
    Words{kTypeMismatch, u"Un valor no es del tipo que se espera."},
    Words{kFileNotFound, u"No se encuentra un fichero o un programa."},
    Words{kObjectNotSet, u"Falta algo que tenía que estar abierto o elegido."},
    Words{kForNotInitialised, u"Una cuenta no ha podido empezar."},
    Words{kInvalidUseOfNull, u"Falta un dato que no puede faltar."},
    Words{kInvalidPropertyValue, u"Un valor no se admite en este lugar."},
    Words{kInvalidPropertyIndex, u"Se ha pedido una línea o una columna que no existe."},
    Words{kFormAlreadyShown, u"La ventana ya está abierta."},
    Words{kModelessOverModal, u"Hay otra ventana abierta que se ha de cerrar antes."},
    Words{kTreeNoSuchKey, u"Se ha pedido un elemento que no está en el árbol."},
    Words{kTreeKeyNotUnique, u"Dos elementos llevan la misma clave."},
    Words{kTreeKeyInvalid, u"La clave de un elemento no se admite."},

    Words{kInvalidArgument, u"Se ha pedido a los datos algo con un valor que no se admite."},
    Words{kTableAlreadyExists, u"La tabla ya existe."},
    Words{kObjectNotFound, u"Los datos no tienen lo que se ha pedido."},
    Words{kNoSuchIndex, u"La tabla no tiene el índice que se ha pedido."},
    Words{kNoCurrentIndex, u"No se ha dicho por qué índice se busca."},
    Words{kUpdateWithoutEdit, u"Se ha guardado una fila que no se estaba cambiando."},
    Words{kNoCurrentRecord, u"No hay ninguna fila elegida."},
    Words{kDuplicateKey, u"Ya hay una fila con la misma clave."},
    Words{kDatabaseFileNotFound, u"No se encuentra un fichero de datos."},
    Words{kDiskFull, u"El disco está lleno."},
    Words{kReadOnly, u"Los datos sólo se pueden leer."},
    Words{kDiskOrNetworkError, u"El disco o la red han fallado."},
    Words{kPathNotValid, u"No se encuentra una carpeta."},
    Words{kRecordTooLarge, u"La fila es demasiado larga."},
    Words{kNotADatabase, u"Un fichero no es de datos o está dañado."},
    Words{kCouldNotLockFile, u"No se ha podido bloquear un fichero."},
    Words{kCannotOpenFile, u"No se puede abrir un fichero de datos."},
    Words{kNullInPrimaryKey, u"La clave de una fila no puede faltar."},
    Words{kUnknownColumn, u"La consulta nombra una columna que no existe."},
    Words{kConstructNotSupported, u"La consulta no se admite."},
    Words{kSyntaxError, u"La consulta está mal escrita."},
    Words{kInputTableNotFound, u"La consulta nombra una tabla que no existe."},
    Words{kUndefinedFunction, u"La consulta nombra una función que no existe."},
    Words{kTextAfterEnd, u"Sobra texto detrás de la consulta."},
    Words{kFieldTooSmall, u"Un texto es demasiado largo para su columna."},
    Words{kRecordDeleted, u"Otro puesto ha borrado la fila."},
    Words{kFieldDefinedTwice, u"La columna ya existe."},
    Words{kDataChanged, u"Otro puesto ha cambiado la fila mientras tanto."},
    Words{kDatabaseAlreadyExists, u"El fichero de datos ya existe."},
    Words{kCouldNotLockTable, u"Otro puesto usa la tabla."},
    Words{kInvalidOperation, u"Los datos no admiten esta operación."},
    Words{kOperationNotSupported, u"Estos datos no admiten esta operación."},
    Words{kLockedByAnother, u"Otro puesto tiene bloqueados los datos."},
    Words{kTableInUse, u"La tabla se está usando."},
    Words{kNoFieldDefined, u"Una tabla o un índice no tiene columnas."},
    Words{kItemNotInCollection, u"No existe la tabla o la columna que se ha pedido."},
    Words{kFieldInIndex, u"La columna pertenece a un índice."},
    Words{kPrimaryKeyAlreadyExists, u"La tabla ya tiene una clave."},
    Words{kIndexAlreadyExists, u"El índice ya existe."},
    Words{kZeroLengthNotAllowed, u"La columna no admite un texto vacío."},
    Words{kNotUpdatable, u"Estos datos no se pueden cambiar."},
    Words{kUnrecognisedFormat, u"El formato de un fichero de datos no se conoce."},
    Words{kNoSuchIndexOnTable, u"La tabla no tiene ese índice."},
    Words{kNoSuchTable, u"La tabla no existe."},
    Words{kObjectInvalid, u"Los datos que se usaban ya están cerrados."},
    Words{kConversionError, u"Un dato no se puede convertir al tipo de su columna."},
};

} // namespace

QString failureWords(int number)
{
    const auto* const found = std::ranges::find(kWords, number, &Words::number);
    return found == kWords.end() ? QString() : found->text.toString();
}

} // namespace shell
