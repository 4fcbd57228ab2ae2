// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/wordlists.h"

#include <array>

namespace tools {

namespace {

constexpr std::array kSurnames{
    QStringView(u"García"),     QStringView(u"Martínez"),  QStringView(u"López"),
    QStringView(u"Sánchez"),    QStringView(u"Pérez"),     QStringView(u"Gómez"),
    QStringView(u"Fernández"),  QStringView(u"Ruiz"),      QStringView(u"Díaz"),
    QStringView(u"Moreno"),     QStringView(u"Muñoz"),     QStringView(u"Álvarez"),
    QStringView(u"Romero"),     QStringView(u"Alonso"),    QStringView(u"Gutiérrez"),
    QStringView(u"Navarro"),    QStringView(u"Torres"),    QStringView(u"Domínguez"),
    QStringView(u"Vázquez"),    QStringView(u"Ramos"),     QStringView(u"Gil"),
    QStringView(u"Ramírez"),    QStringView(u"Serrano"),   QStringView(u"Blanco"),
    QStringView(u"Molina"),     QStringView(u"Morales"),   QStringView(u"Suárez"),
    QStringView(u"Ortega"),     QStringView(u"Delgado"),   QStringView(u"Castro"),
    QStringView(u"Ortiz"),      QStringView(u"Rubio"),     QStringView(u"Marín"),
    QStringView(u"Sanz"),       QStringView(u"Núñez"),     QStringView(u"Iglesias"),
    QStringView(u"Medina"),     QStringView(u"Garrido"),   QStringView(u"Cortés"),
    QStringView(u"Castillo"),   QStringView(u"Santos"),    QStringView(u"Lozano"),
    QStringView(u"Guerrero"),   QStringView(u"Cano"),      QStringView(u"Prieto"),
    QStringView(u"Méndez"),     QStringView(u"Cruz"),      QStringView(u"Calvo"),
    QStringView(u"Gallego"),    QStringView(u"Vidal"),     QStringView(u"León"),
    QStringView(u"Márquez"),    QStringView(u"Herrera"),   QStringView(u"Peña"),
    QStringView(u"Flores"),     QStringView(u"Cabrera"),   QStringView(u"Campos"),
    QStringView(u"Vega"),       QStringView(u"Fuentes"),   QStringView(u"Carrasco"),
    QStringView(u"Diez"),       QStringView(u"Caballero"), QStringView(u"Reyes"),
    QStringView(u"Nieto"),      QStringView(u"Aguilar"),   QStringView(u"Pascual"),
    QStringView(u"Santana"),    QStringView(u"Herrero"),   QStringView(u"Lorenzo"),
    QStringView(u"Montero"),    QStringView(u"Hidalgo"),   QStringView(u"Giménez"),
    QStringView(u"Ibáñez"),     QStringView(u"Ferrer"),    QStringView(u"Durán"),
    QStringView(u"Santiago"),   QStringView(u"Benítez"),   QStringView(u"Mora"),
    QStringView(u"Vicente"),    QStringView(u"Vargas"),    QStringView(u"Arias"),
    QStringView(u"Carmona"),    QStringView(u"Crespo"),    QStringView(u"Román"),
    QStringView(u"Pastor"),     QStringView(u"Soto"),      QStringView(u"Sáez"),
    QStringView(u"Velasco"),    QStringView(u"Moya"),      QStringView(u"Soler"),
    QStringView(u"Parra"),      QStringView(u"Esteban"),   QStringView(u"Bravo"),
    QStringView(u"Gallardo"),   QStringView(u"Rojas"),     QStringView(u"Chacón"),
    QStringView(u"Llorens"),    QStringView(u"Ñíguez"),    QStringView(u"Llull"),
    QStringView(u"Chamorro"),   QStringView(u"Cuadrado"),  QStringView(u"Cueto"),
    QStringView(u"Czerny"),     QStringView(u"Luna"),      QStringView(u"Lluch"),
    QStringView(u"Lázaro"),     QStringView(u"Nadal"),     QStringView(u"Ñáñez"),
    QStringView(u"Oñate"),      QStringView(u"Peñalver"),  QStringView(u"Güell"),
    QStringView(u"Argüelles"),  QStringView(u"Açorín"),    QStringView(u"Echániz"),
    QStringView(u"Etxeberria"), QStringView(u"Zabala"),    QStringView(u"Zúñiga"),
    QStringView(u"Ybarra"),     QStringView(u"Bosch"),     QStringView(u"Puig"),
    QStringView(u"Casals"),     QStringView(u"Feliu"),     QStringView(u"Roig"),
    QStringView(u"Collado"),    QStringView(u"Callejas"),  QStringView(u"Cortina"),
};

constexpr std::array kGivenNames{
    QStringView(u"Antonio"),    QStringView(u"José"),       QStringView(u"Manuel"),
    QStringView(u"Francisco"),  QStringView(u"David"),      QStringView(u"Juan"),
    QStringView(u"Javier"),     QStringView(u"Daniel"),     QStringView(u"Carlos"),
    QStringView(u"Jesús"),      QStringView(u"Alejandro"),  QStringView(u"Miguel"),
    QStringView(u"Rafael"),     QStringView(u"Pedro"),      QStringView(u"Pablo"),
    QStringView(u"Ángel"),      QStringView(u"Sergio"),     QStringView(u"Fernando"),
    QStringView(u"Jorge"),      QStringView(u"Luis"),       QStringView(u"Alberto"),
    QStringView(u"Álvaro"),     QStringView(u"Adrián"),     QStringView(u"Diego"),
    QStringView(u"Raúl"),       QStringView(u"Iván"),       QStringView(u"Rubén"),
    QStringView(u"Enrique"),    QStringView(u"Óscar"),      QStringView(u"Ramón"),
    QStringView(u"Vicente"),    QStringView(u"Andrés"),     QStringView(u"Joaquín"),
    QStringView(u"Santiago"),   QStringView(u"Íñigo"),      QStringView(u"Jordi"),
    QStringView(u"Xavier"),     QStringView(u"María"),      QStringView(u"Carmen"),
    QStringView(u"Ana"),        QStringView(u"Isabel"),     QStringView(u"Laura"),
    QStringView(u"Cristina"),   QStringView(u"Marta"),      QStringView(u"Dolores"),
    QStringView(u"Lucía"),      QStringView(u"Pilar"),      QStringView(u"Elena"),
    QStringView(u"Sara"),       QStringView(u"Raquel"),     QStringView(u"Rosa"),
    QStringView(u"Beatriz"),    QStringView(u"Nuria"),      QStringView(u"Silvia"),
    QStringView(u"Patricia"),   QStringView(u"Rocío"),      QStringView(u"Inés"),
    QStringView(u"Concepción"), QStringView(u"Begoña"),     QStringView(u"Montserrat"),
    QStringView(u"Chelo"),      QStringView(u"Mª Ángeles"), QStringView(u"Mª José"),
    QStringView(u"Núria"),
};

constexpr std::array kStreetKinds{
    QStringView(u"C/"),   QStringView(u"C/"),     QStringView(u"C/"),        QStringView(u"C/"),
    QStringView(u"C/"),   QStringView(u"Avda."),  QStringView(u"Avda."),     QStringView(u"Pza."),
    QStringView(u"Pº"),   QStringView(u"Ctra."),  QStringView(u"Pol. Ind."), QStringView(u"Trav."),
    QStringView(u"Rda."), QStringView(u"Camino"),
};

constexpr std::array kStreetNames{
    QStringView(u"Mayor"),
    QStringView(u"Real"),
    QStringView(u"de la Constitución"),
    QStringView(u"de España"),
    QStringView(u"del Sol"),
    QStringView(u"Cervantes"),
    QStringView(u"San Juan"),
    QStringView(u"San Pedro"),
    QStringView(u"San Antonio"),
    QStringView(u"Santa Ana"),
    QStringView(u"de la Paz"),
    QStringView(u"de la Libertad"),
    QStringView(u"Miguel Servet"),
    QStringView(u"Goya"),
    QStringView(u"Velázquez"),
    QStringView(u"Lope de Vega"),
    QStringView(u"Calderón"),
    QStringView(u"Ramón y Cajal"),
    QStringView(u"Joaquín Costa"),
    QStringView(u"Doctor Fleming"),
    QStringView(u"Gran Vía"),
    QStringView(u"del Carmen"),
    QStringView(u"de las Flores"),
    QStringView(u"del Río"),
    QStringView(u"de la Fuente"),
    QStringView(u"de la Iglesia"),
    QStringView(u"Nueva"),
    QStringView(u"Ancha"),
    QStringView(u"de Aragón"),
    QStringView(u"de Cataluña"),
    QStringView(u"de Castilla"),
    QStringView(u"de Andalucía"),
    QStringView(u"Alfonso X"),
    QStringView(u"Jaime I"),
    QStringView(u"Isabel la Católica"),
    QStringView(u"Reyes Católicos"),
    QStringView(u"Colón"),
    QStringView(u"Pizarro"),
    QStringView(u"Hernán Cortés"),
    QStringView(u"Magallanes"),
    QStringView(u"Séneca"),
    QStringView(u"Averroes"),
    QStringView(u"García Lorca"),
    QStringView(u"Machado"),
    QStringView(u"Rosalía de Castro"),
    QStringView(u"Bécquer"),
    QStringView(u"Blasco Ibáñez"),
    QStringView(u"Pío Baroja"),
    QStringView(u"Unamuno"),
    QStringView(u"de la Estación"),
    QStringView(u"del Mercado"),
    QStringView(u"del Prado"),
    QStringView(u"de los Olivos"),
    QStringView(u"de las Eras"),
    QStringView(u"del Pilar"),
    QStringView(u"de la Merced"),
    QStringView(u"del Parque"),
    QStringView(u"del Castillo"),
    QStringView(u"Malpica"),
    QStringView(u"El Portazgo"),
    QStringView(u"Las Fuentes"),
    QStringView(u"La Peña"),
    QStringView(u"Vizconde de Eza"),
    QStringView(u"Jardines"),
    QStringView(u"Ñ. Peñarroya"),
    QStringView(u"Chile"),
    QStringView(u"Llano Alto"),
};

constexpr std::array kFirmStems{
    QStringView(u"Hidro"), QStringView(u"Clima"), QStringView(u"Termo"), QStringView(u"Electro"),
    QStringView(u"Tecno"), QStringView(u"Iber"),  QStringView(u"Nor"),   QStringView(u"Sur"),
    QStringView(u"Levan"), QStringView(u"Alto"),  QStringView(u"Metal"), QStringView(u"Agro"),
    QStringView(u"Bio"),   QStringView(u"Euro"),  QStringView(u"Multi"), QStringView(u"Inter"),
    QStringView(u"Proa"),  QStringView(u"Segur"), QStringView(u"Infor"), QStringView(u"Cons"),
    QStringView(u"Aqua"),  QStringView(u"Vent"),  QStringView(u"Cal"),   QStringView(u"Frío"),
    QStringView(u"Mecan"), QStringView(u"Eco"),   QStringView(u"Domo"),  QStringView(u"Llano"),
    QStringView(u"Chapi"), QStringView(u"Ñora"),  QStringView(u"Peña"),  QStringView(u"Ría"),
};

constexpr std::array kFirmTrades{
    QStringView(u"Instalaciones"),  QStringView(u"Fontanería"),
    QStringView(u"Construcciones"), QStringView(u"Carpintería"),
    QStringView(u"Talleres"),       QStringView(u"Transportes"),
    QStringView(u"Panadería"),      QStringView(u"Electricidad"),
    QStringView(u"Calefacción"),    QStringView(u"Suministros"),
    QStringView(u"Bodegas"),        QStringView(u"Conservas"),
    QStringView(u"Imprenta"),       QStringView(u"Muebles"),
    QStringView(u"Pinturas"),       QStringView(u"Excavaciones"),
    QStringView(u"Maquinaria"),     QStringView(u"Cristalería"),
    QStringView(u"Distribuciones"), QStringView(u"Autoescuela"),
    QStringView(u"Lavandería"),     QStringView(u"Gestoría"),
    QStringView(u"Asesoría"),       QStringView(u"Clínica Dental"),
    QStringView(u"Farmacia"),       QStringView(u"Ferretería"),
    QStringView(u"Óptica"),         QStringView(u"Ganados"),
    QStringView(u"Cerrajería"),     QStringView(u"Limpiezas"),
    QStringView(u"Chapas"),         QStringView(u"Llaves y Duplicados"),
};

constexpr std::array kHouseNames{
    QStringView(u"Bellavista"),     QStringView(u"Los Ángeles"),
    QStringView(u"La Marina"),      QStringView(u"El Pilar"),
    QStringView(u"Santa Clara"),    QStringView(u"Miramar"),
    QStringView(u"Las Torres"),     QStringView(u"Puerta del Sol"),
    QStringView(u"Los Álamos"),     QStringView(u"San Jorge"),
    QStringView(u"La Alameda"),     QStringView(u"Monterrey"),
    QStringView(u"Río Ebro"),       QStringView(u"Los Peñones"),
    QStringView(u"Montecarlo"),     QStringView(u"Don Quijote"),
    QStringView(u"La Encina"),      QStringView(u"Casablanca"),
    QStringView(u"Las Acacias"),    QStringView(u"La Muralla"),
    QStringView(u"El Cañizo"),      QStringView(u"Los Llanos"),
    QStringView(u"Chimenea Vieja"), QStringView(u"Ángel Ganivet"),
    QStringView(u"Los Almendros"),  QStringView(u"Nuestra Sra. del Carmen"),
    QStringView(u"Plaza Nueva"),    QStringView(u"El Olivar"),
    QStringView(u"La Cañada"),      QStringView(u"Sant Jordi"),
};

constexpr std::array kContactPosts{
    QStringView(u"Administración"),
    QStringView(u"Recepción"),
    QStringView(u"Conserjería"),
    QStringView(u"Mantenimiento"),
    QStringView(u"Gerencia"),
    QStringView(u"Taller"),
    QStringView(u"Almacén"),
    QStringView(u"Contabilidad"),
    QStringView(u"Compras"),
    QStringView(u"Portería"),
    QStringView(u"Presidente de la comunidad"),
    QStringView(u"Secretaría"),
    QStringView(u"Dirección"),
    QStringView(u"Centralita"),
};

constexpr std::array kCarriers{
    QStringView(u"Transportes Ebro"), QStringView(u"Mensajería Exprés"), QStringView(u"Agencia del Norte"),
    QStringView(u"Nuestros medios"),  QStringView(u"Portes Levante"),    QStringView(u"Reparto Urbano"),
    QStringView(u"Transportes Peña"),
};

constexpr std::array kBanks{
    Bank{u"0019", u"Banco del Ebro"},
    Bank{u"0042", u"Banco de Levante"},
    Bank{u"0049", u"Banco Central Ibérico"},
    Bank{u"0061", u"Banca Ñíguez"},
    Bank{u"0075", u"Banco Popular del Sur"},
    Bank{u"0081", u"Banco de Sabiñánigo"},
    Bank{u"2038", u"Caja de Ahorros del Centro"},
    Bank{u"2043", u"Caja de Murcia y Almería"},
    Bank{u"2077", u"Caja del Mediterráneo Norte"},
    Bank{u"2085", u"Caja de Aragón"},
    Bank{u"2100", u"Caixa de Pensions del Llobregat"},
    Bank{u"2103", u"Caja de la Bahía"},
    Bank{u"3008", u"Caja Rural del Duero"},
    Bank{u"3058", u"Caja Rural del Sureste"},
};

} // namespace

Words surnames() noexcept
{
    return kSurnames;
}

Words givenNames() noexcept
{
    return kGivenNames;
}

Words streetKinds() noexcept
{
    return kStreetKinds;
}

Words streetNames() noexcept
{
    return kStreetNames;
}

Words firmStems() noexcept
{
    return kFirmStems;
}

Words firmTrades() noexcept
{
    return kFirmTrades;
}

Words houseNames() noexcept
{
    return kHouseNames;
}

Words contactPosts() noexcept
{
    return kContactPosts;
}

Words carriers() noexcept
{
    return kCarriers;
}

std::span<const Bank> banks() noexcept
{
    return kBanks;
}

} // namespace tools
