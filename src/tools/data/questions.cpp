// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/catalogue.h"

#include <array>

namespace tools {

namespace {

constexpr std::array kQuestions{
    Question{Trade::Climate, u"La caldera no enciende",
             u"Desde ayer la caldera intenta arrancar tres veces y se bloquea. En la pantalla sale E01. ¿Es "
             u"del gas?",
             u"Error de encendido. Se comprueba la presión de gas (correcta) y se cambia el electrodo. "
             u"Arranca bien."},
    Question{Trade::Climate, u"Baja la presión de la calefacción",
             u"Tenemos que rellenar el circuito cada dos días. No vemos agua en el suelo.",
             u"Vaso de expansión pinchado. Se sustituye por uno de 18 l y se purga la instalación."},
    Question{Trade::Climate, u"Ruido en el quemador",
             u"El quemador vibra mucho al arrancar y huele a gasóleo en la sala.",
             u"Boquilla sucia y electrodos descentrados. Se limpia y se regula la combustión; se deja copia "
             u"de valores."},
    Question{
        Trade::Climate, u"Aire acondicionado gotea",
        u"El split de recepción gotea sobre el mostrador cuando lleva un par de horas.",
        u"Desagüe obstruido. Se sopla el tubo y se limpia la bandeja. Conviene repetirlo cada primavera."},
    Question{Trade::Climate, u"No enfría lo suficiente",
             u"En la sala de reuniones no bajamos de 27 ºC aunque se ponga a 21. ¿Falta gas?",
             u"Filtros colmatados y condensador sucio. Tras la limpieza baja a 22 ºC en veinte minutos. No "
             u"faltaba gas."},
    Question{Trade::Climate, u"Termostato sin pantalla",
             u"El termostato del pasillo se ha quedado sin pantalla. Las pilas son nuevas.",
             u"Contacto de la base oxidado. Se cambia el termostato y se programa el horario de invierno."},
    Question{Trade::Climate, u"Revisión anual pendiente",
             u"¿Cuándo toca la revisión obligatoria? El administrador nos pide el certificado.",
             u"Se hizo en octubre. Se envía copia del certificado por correo."},
    Question{Trade::Climate, u"Agua caliente tarda mucho",
             u"En los pisos altos el agua caliente tarda más de tres minutos en salir.",
             u"Bomba de recirculación parada por el reloj. Se ajusta el horario de 6:00 a 23:30."},
    Question{Trade::Climate, u"Purgar radiadores",
             u"¿Cómo se purgan los radiadores del tercero? Están fríos por arriba.",
             u"Se explica por teléfono: abrir el purgador con media vuelta hasta que salga agua y reponer a "
             u"1,5 bar."},
    Question{Trade::Climate, u"Captador solar con fuga",
             u"Hay una mancha de líquido azul debajo de uno de los captadores de la cubierta.",
             u"Junta del racor cedida. Se cambia y se repone anticongelante al 30 %."},
    Question{Trade::Lifts, u"Ascensor parado entre plantas",
             u"El ascensor se ha quedado entre el 2º y el 3º. No hay nadie dentro.",
             u"Serie de puertas abierta en el 3º. Se ajusta la cerradura y se deja en servicio."},
    Question{
        Trade::Lifts, u"La cabina no queda a nivel",
        u"Al llegar a la planta baja se queda unos cuatro centímetros por encima. Un vecino ha tropezado.",
        u"Se cambia el imán de nivelación y se reajusta la frenada. Comprobado con carga."},
    Question{Trade::Lifts, u"Puertas que rebotan",
             u"Las puertas se abren y se cierran solas varias veces antes de arrancar.",
             u"Barrera de infrarrojos sucia. Se limpia; si vuelve a pasar hay que cambiarla (presupuesto "
             u"enviado)."},
    Question{Trade::Lifts, u"Inspección periódica",
             u"Nos ha llegado el aviso de la inspección. ¿La piden ustedes o la comunidad?",
             u"La solicita el titular. Les mandamos la lista de organismos y acompañamos al inspector."},
    Question{Trade::Lifts, u"Teléfono de cabina sin línea", u"Al pulsar la campana no contesta nadie.",
             u"La compañía había dado de baja la línea. Se pone módulo con tarjeta y se prueba con la "
             u"centralita."},
    Question{Trade::Lifts, u"Ruido en el cuarto de máquinas",
             u"Los vecinos del ático se quejan de un zumbido por la noche.", u""},
    Question{Trade::Lifts, u"Llave de bloqueo perdida",
             u"El conserje ha perdido la llave de bloqueo. ¿Pueden mandar dos copias?",
             u"Se envían dos llaves con el técnico de la ruta del jueves."},
    Question{
        Trade::Lifts, u"Olor a quemado", u"Huele a quemado cuando sube lleno. ¿Lo paramos?",
        u"Sí, parado hasta la visita. Zapata de freno rozando; se sustituye y se deja rodaje de una hora."},
    Question{
        Trade::Security, u"Salta la alarma por la noche",
        u"Tres noches seguidas se ha disparado la zona 4 sobre las cinco de la mañana.",
        u"Corriente de aire sobre el detector del almacén. Se cambia de sitio y se baja la sensibilidad."},
    Question{Trade::Security, u"Cambiar el código de usuario",
             u"Se ha marchado una empleada y queremos anular su código. ¿Cómo se hace?",
             u"Código maestro, 5, número de usuario, borrar. Se acompaña al cliente por teléfono."},
    Question{Trade::Security, u"Cámara sin imagen",
             u"La cámara del patio se ve negra desde la tormenta del domingo.",
             u"Fuente quemada. Se sustituye y se recomienda un protector de sobretensión."},
    Question{Trade::Security, u"El grabador no guarda",
             u"Solo encontramos imágenes de los dos últimos días, antes guardaba quince.",
             u"Un disco había fallado. Cambiado en garantía; vuelve a guardar quince días."},
    Question{Trade::Security, u"Extintores caducados",
             u"¿Nos tocan ya los extintores del garaje? La pegatina no se lee.",
             u"Tocan en marzo. Se retimbran seis y se cambian dos que tenían más de veinte años."},
    Question{Trade::Security, u"Falta de comunicación con la CRA",
             u"La central nos avisa de que no reciben el test diario.",
             u"El router era nuevo y no tenía abierto el puerto. Configurado con el cliente; test recibido."},
    Question{Trade::Security, u"Batería baja en la central", u"El teclado pita cada minuto y pone BAT.",
             u"Se cambia la batería de 12 V 7 Ah. Tenía seis años."},
    Question{Trade::Security, u"Simulacro de evacuación",
             u"Queremos hacer un simulacro en el colegio. ¿Pueden dejar la sirena en pruebas?",
             u"Acordado para el viernes a las 11:30. Se avisa a la central receptora."},
    Question{Trade::Computers, u"No imprime las facturas",
             u"El programa dice que no encuentra la impresora desde que cambiamos el ordenador.",
             u"Se instala la impresora en el puesto nuevo y se deja como predeterminada."},
    Question{Trade::Computers, u"Copia de seguridad con errores",
             u"El informe de la copia de anoche trae dos ficheros con error. ¿Es grave?",
             u"Los ficheros estaban abiertos en otro puesto. Se pasa la copia a las 3:00 y sale limpia."},
    Question{Trade::Computers, u"Va lento al abrir clientes",
             u"Por las mañanas tarda casi un minuto en abrir la ficha de clientes.",
             u"Coincidía con el antivirus. Se excluye la carpeta de datos y abre en dos segundos."},
    Question{
        Trade::Computers, u"Cambio de ejercicio",
        u"¿Qué hay que hacer para empezar el año nuevo? No queremos perder las series.",
        u"Se hace con el cliente por control remoto. Queda la copia previa en la carpeta \"Año anterior\"."},
    Question{
        Trade::Computers, u"Fichero bloqueado por otro puesto",
        u"Sale que no puede bloquear los ficheros y solo está abierto en mi mesa.",
        u"Sesión colgada en el servidor. Se cierra y vuelve a trabajar. Si se repite, avisar sin reiniciar."},
    Question{Trade::Computers, u"El cajón no se abre", u"Al cobrar en efectivo el cajón ya no se abre solo.",
             u"Cable del cajón suelto en la impresora de tiques."},
    Question{Trade::Computers, u"Exportar clientes a una hoja",
             u"¿Se puede sacar el listado de clientes con el teléfono y el correo?",
             u"Sí, desde informes, exportando a hoja de cálculo. Se manda una guía de dos páginas."},
    Question{Trade::Computers, u"SAI pitando", u"El SAI del servidor pita sin parar aunque hay luz.",
             u"Batería agotada. Se cambia en caliente sin apagar el servidor."},
    Question{Trade::General, u"Duda sobre la factura",
             u"En la última factura hay dos desplazamientos y solo vinieron una vez.",
             u"Error nuestro. Se abona el segundo desplazamiento en la factura siguiente."},
    Question{Trade::General, u"Cambio de cuenta bancaria",
             u"Cambiamos de banco el día 1. ¿Qué papeles necesitan?",
             u"Basta la orden firmada con los veinte dígitos. Recibida y grabada."},
    Question{Trade::General, u"Presupuesto de ampliación",
             u"Vamos a abrir otra nave en el polígono y queremos presupuesto de todo.", u""},
    Question{Trade::General, u"Horario de guardias en agosto",
             u"¿Quién atiende las urgencias en agosto? El año pasado no contestaba nadie.",
             u"Guardia las 24 h en el teléfono de urgencias. Se manda circular a todos los clientes."},
    Question{Trade::General, u"Baja del contrato",
             u"Cerramos el local a final de mes y queremos dar de baja el mantenimiento.",
             u"Baja tramitada con fecha de fin de mes. Se retira la placa."},
    Question{Trade::General, u"¿Cuándo viene el técnico?",
             u"Quedaron en venir el lunes por la mañana y no ha aparecido nadie.",
             u"Avería urgente en otro cliente. Se visita el martes a primera hora y no se cobra el "
             u"desplazamiento."},
    Question{Trade::General, u"Chasquido en el cuadro eléctrico",
             u"Al poner en marcha el equipo se oye un chasquido y a veces salta el diferencial.",
             u"Contactor con el contacto pegado. Sustituido; se mide aislamiento y está bien."},
    Question{Trade::General, u"Actualizar la ficha técnica",
             u"Necesitamos la ficha técnica del equipo para la licencia del ayuntamiento.",
             u"Enviada en PDF al correo de la ficha."},
};

} // namespace

std::span<const Question> questions() noexcept
{
    return kQuestions;
}

} // namespace tools
