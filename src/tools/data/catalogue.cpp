// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/catalogue.h"

#include <algorithm>
#include <array>

namespace tools {

namespace {

constexpr std::array kCompanies{
    Company{u"00001", u"Ñíguez Climatización, S.A.", false},
    Company{u"00012", u"Asistencia Técnica del Ebro, S.L.", true},
    Company{u"00027", u"Chacón y Llorens Ascensores, S.L.", false},
};

constexpr std::array kZones{
    Zone{u"0000000001", u"ZONA GENERAL", u""},
    Zone{u"0000000002", u"CENTRO", u"Calles peatonales: la furgoneta entra de 8 a 11."},
    Zone{u"0000000003", u"POLÍGONOS Y NAVES", u""},
    Zone{u"0000000004", u"COSTA", u"En agosto, doble turno de guardia."},
    Zone{u"0000000005", u"MONTAÑA", u"Con nieve llamar antes: hay puertos cerrados."},
    Zone{u"0000000006", u"RIBERA", u""},
    Zone{u"0000000007", u"ISLAS", u"El barco sale los martes y los jueves."},
    Zone{u"0000000008", u"LLANOS DEL SUR", u""},
    Zone{u"0000000009", u"CHOPERA Y EXTRARRADIO", u""},
    Zone{u"NOCHE", u"Guardia de noche y festivos", u"Se cobra el desplazamiento aparte."},
};

constexpr std::array kClientTypes{
    ClientType{u"0001", u"Comunidad de propietarios", 5},
    ClientType{u"0002", u"Empresa", 10},
    ClientType{u"0003", u"Particular", 0},
    ClientType{u"0004", u"Administración pública", 12},
    ClientType{u"0005", u"Hostelería", 8},
    ClientType{u"0006", u"Taller o industria", 10},
    ClientType{u"0007", u"Centro de enseñanza", 15},
    ClientType{u"VIP", u"Cliente con contrato total", 20},
};

constexpr std::array kFamilies{
    Family{u"0001", u"Calderas y calefacción", Trade::Climate},
    Family{u"0002", u"Aire acondicionado", Trade::Climate},
    Family{u"0003", u"Ascensores", Trade::Lifts},
    Family{u"0004", u"Alarmas y videovigilancia", Trade::Security},
    Family{u"0005", u"Protección contra incendios", Trade::Security},
    Family{u"0006", u"Mantenimiento informático", Trade::Computers},
    Family{u"0007", u"Mano de obra y desplazamientos", Trade::General},
    Family{u"0008", u"Energía solar", Trade::Climate},
};

constexpr std::array kArticles{
    Article{u"0000000001", u"CAL-C24", u"Caldera mural de condensación 24 kW", u"0001", 1190.0, false, false},
    Article{u"0000000002", u"CAL-C30", u"Caldera mural de condensación 30 kW", u"0001", 1420.0, false, false},
    Article{u"0000000003", u"CAL-PIE", u"Caldera de pie de gasóleo 35 kW", u"0001", 2350.5, false, false},
    Article{u"0000000004", u"", u"Caldera atmosférica 20 kW", u"0001", 645.0, false, true},
    Article{u"0000000005", u"QUEM-G", u"Quemador de gasóleo de una llama", u"0001", 412.75, false, false},
    Article{u"0000000006", u"VE-18", u"Vaso de expansión 18 l", u"0001", 46.9, false, false},
    Article{u"0000000007", u"TERM-PR", u"Termostato programable semanal", u"0001", 78.35, false, false},
    Article{u"0000000008", u"MANT-CAL", u"Mantenimiento anual de caldera individual", u"0001", 96.0, true,
            false},
    Article{u"0000000009", u"MANT-SC", u"Mantenimiento de sala de calderas", u"0001", 185.0, true, false},
    Article{u"0000000010", u"SP-35", u"Split de pared 3,5 kW con bomba de calor", u"0002", 689.0, false,
            false},
    Article{u"0000000011", u"SP-50", u"Split de pared 5 kW con bomba de calor", u"0002", 945.0, false, false},
    Article{u"0000000012", u"CAS-90", u"Casete de techo de cuatro vías 9 kW", u"0002", 1810.0, false, false},
    Article{u"0000000013", u"ROOF-40", u"Equipo de cubierta 40 kW", u"0002", 11250.0, false, false},
    Article{u"0000000014", u"FC-4T", u"Ventiloconvector de cuatro tubos", u"0002", 386.4, false, false},
    Article{u"0000000015", u"FILT-G4", u"Filtro de aire G4 592x592", u"0002", 12.6, false, false},
    Article{u"0000000016", u"MANT-AA", u"Revisión semestral de aire acondicionado", u"0002", 74.0, true,
            false},
    Article{u"0000000017", u"R22", u"Gas refrigerante R-22 (kg)", u"0002", 19.0, false, true},
    Article{u"0000000018", u"ASC-4", u"Ascensor eléctrico 4 personas, 6 paradas", u"0003", 28900.0, false,
            false},
    Article{u"0000000019", u"ASC-6H", u"Ascensor hidráulico 6 personas, 4 paradas", u"0003", 26450.0, false,
            false},
    Article{u"0000000020", u"MCARGA", u"Montacargas industrial 1.000 kg", u"0003", 31780.0, false, false},
    Article{u"0000000021", u"SALVAESC", u"Salvaescaleras de plataforma", u"0003", 9860.0, false, false},
    Article{u"0000000022", u"BOT-BR", u"Botonera de cabina con braille", u"0003", 342.0, false, false},
    Article{u"0000000023", u"MANT-ASC", u"Conservación mensual de ascensor", u"0003", 89.9, true, false},
    Article{u"0000000024", u"MANT-ASCT", u"Conservación todo riesgo de ascensor", u"0003", 164.5, true,
            false},
    Article{u"0000000025", u"LIN-TEL", u"Línea telefónica de rescate en cabina", u"0003", 14.3, true, false},
    Article{u"0000000026", u"ALM-Z8", u"Central de alarma de ocho zonas", u"0004", 298.0, false, false},
    Article{u"0000000027", u"DET-PIR", u"Detector volumétrico", u"0004", 39.95, false, false},
    Article{u"0000000028", u"CAM-IP", u"Cámara exterior con visión nocturna", u"0004", 146.0, false, false},
    Article{u"0000000029", u"GRAB-8", u"Grabador de ocho canales con disco", u"0004", 321.0, false, false},
    Article{u"0000000030", u"CRA", u"Conexión a central receptora de alarmas", u"0004", 24.8, true, false},
    Article{u"0000000031", u"MANT-ALM", u"Revisión trimestral de alarma", u"0004", 42.0, true, false},
    Article{u"0000000032", u"EXT-6P", u"Extintor de polvo ABC 6 kg", u"0005", 38.2, false, false},
    Article{u"0000000033", u"EXT-5C", u"Extintor de CO2 5 kg", u"0005", 84.6, false, false},
    Article{u"0000000034", u"BIE-25", u"Boca de incendio equipada de 25 mm", u"0005", 265.0, false, false},
    Article{u"0000000035", u"RET-EXT", u"Retimbrado de extintor", u"0005", 17.5, true, false},
    Article{u"0000000036", u"MANT-PCI", u"Mantenimiento trimestral contra incendios", u"0005", 132.0, true,
            false},
    Article{u"0000000037", u"MANT-SW", u"Mantenimiento de programas de gestión", u"0006", 58.0, true, false},
    Article{u"0000000038", u"COPIA-R", u"Copia de seguridad remota", u"0006", 19.9, true, false},
    Article{u"0000000039", u"TPV-15", u"Terminal punto de venta táctil", u"0006", 895.0, false, false},
    Article{u"0000000040", u"SAI-1000", u"Sistema de alimentación ininterrumpida 1 kVA", u"0006", 178.4,
            false, false},
    Article{u"0000000041", u"SERV-T", u"Servidor de torre con dos discos", u"0006", 1680.0, false, false},
    Article{u"0000000042", u"BONO-10", u"Bono de diez horas de asistencia", u"0006", 390.0, true, false},
    Article{u"0000000043", u"MO-OF1", u"Hora de oficial de primera", u"0007", 38.5, true, false},
    Article{u"0000000044", u"MO-AYU", u"Hora de ayudante", u"0007", 27.0, true, false},
    Article{u"0000000045", u"DESP", u"Desplazamiento dentro de la ciudad", u"0007", 22.0, true, false},
    Article{u"0000000046", u"", u"Kilómetro fuera de la ciudad", u"0007", 0.42, true, false},
    Article{u"0000000047", u"URG-24", u"Servicio de urgencia las 24 horas", u"0007", 31.0, true, false},
    Article{u"0000000048", u"SOL-2", u"Equipo solar térmico de dos captadores", u"0008", 2260.0, false,
            false},
    Article{u"0000000049", u"SOL-GL", u"Líquido anticongelante para solar (l)", u"0008", 4.1, false, false},
    Article{u"0000000050", u"MANT-SOL", u"Mantenimiento semestral de equipo solar", u"0008", 68.0, true,
            false},
    Article{u"CHAPA-01", u"", u"Chapa de cierre de conducto", u"0002", 8.75, false, false},
    Article{u"LLAVE-BL", u"LL-BL", u"Llave de bloqueo de cabina", u"0003", 6.4, false, false},
    Article{u"ÑAPA", u"", u"Ñapas y pequeño material", u"0007", 5.0, false, false},
    Article{u"ZUMB-4", u"", u"Zumbador de cuatro tonos", u"0004", 13.15, false, false},
};

} // namespace

std::span<const Company> companies() noexcept
{
    return kCompanies;
}

std::span<const Zone> zones() noexcept
{
    return kZones;
}

std::span<const ClientType> clientTypes() noexcept
{
    return kClientTypes;
}

std::span<const Family> families() noexcept
{
    return kFamilies;
}

std::span<const Article> articles() noexcept
{
    return kArticles;
}

const Family& familyOf(QStringView code) noexcept
{
    const auto found = std::find_if(kFamilies.begin(), kFamilies.end(),
                                    [code](const Family& family) { return family.code == code; });
    return found == kFamilies.end() ? kFamilies.front() : *found;
}

} // namespace tools
