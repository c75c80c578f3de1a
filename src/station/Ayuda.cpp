#include "station/Ayuda.h"

namespace vintoral {
namespace {

String Titulo() {
  return R"(Vintoral 10.25
==============

)"_w;
}

String AcercaDe() {
  return R"(ACERCA DE Vintoral

Vintoral registra la entrada y la salida de personas y vehículos.
En cualquier portería se entregan fichas numeradas o se imprimen
tiquetes de identificación para quienes ingresan.

)"_w;
}

// The line of F2 names the monitor of F1, as it always has.
String Teclas() {
  return R"(ACERCA DE LAS TECLAS DE ACCESO DIRECTO

ESC                 Cancelar/Limpiar Campos
REPAG               Retroceder Página
AVPAG               Avanzar Página
INICIO              Generador Automático de Fichas o de Códigos de Barras
IZQUIERDA           Foto anterior de la ficha
DERECHA             Foto siguiente de la ficha
INSERT              Guardar Ficha
SUPR                Retirar Ficha
CTRL + 0 ... 9      Seleccionar una categoría de la lista
CTRL + A            Fotos Adicionales
CTRL + B            Instalar la fuente de códigos de barras
CTRL + ALT + B      Activar/Desactivar el modo de códigos de barras
CTRL + C            Contar las fichas de la categoría
CTRL + F            Abrir el historial de facturas
CTRL + I            Cambiar el fondo de pantalla
CTRL + ALT + I      Abrir la carpeta de fondos de pantalla
CTRL + ALT + K      Cambiar Formato de Tiquete
CTRL + ALT + L      Cambiar Formato de Factura
CTRL + ALT + M      Activar/Desactivar Memoria de Rostros
CTRL + ALT + P      Configurar la alerta de pánico
CTRL + SHIFT + R    Reiniciar Total Puntos
CTRL + ALT + R      Olvidar la carpeta compartida mientras se intenta conectar
CTRL + T            Generador de Tarifas
CTRL + W            Conectar/Cambiar Cámara Web
SHIFT + ALT + W     Configurar la cámara web
CTRL + ALT + W      Desactivar la cámara web
CTRL + F1           Abrir este documento
F1                  Activar/Desactivar Monitor "ULTIMOS EN INGRESAR"
F2                  Activar/Desactivar Monitor "ULTIMOS EN INGRESAR"
F3                  Activar/Desactivar Monitor "ULTIMOS EN SALIR"
F4                  Imprimir Estado/Búsqueda/Ficha
F5                  Activar/Desactivar Búsqueda de Registros
F7                  Registrar Extras
F8                  Abrir Menú de Funciones
F9                  Bloqueo de Funciones
F10                 Abrir la ruta de la carpeta compartida mientras se intenta conectar
F12                 Alerta de pánico

)"_w;
}

String Porterias() {
  return R"(ACERCA DE LA CONEXIÓN DE PORTERÍAS

1. En el equipo de la portería P01 comparta en la red la carpeta
   "Multimedia", que se encuentra en la carpeta del programa.
2. Dé a la carpeta compartida derechos de lectura y escritura.
3. Inicie el programa en el equipo de la portería P02.
4. Mientras el programa intenta conectar, es decir, con las barras de
   conexión en color rojo claro, presione "F10".
5. Escriba en la primera línea la ruta de la carpeta compartida.
6. Guarde el archivo y cierre el editor.
7. Inicie de nuevo el programa en la portería P02.

)"_w;
}

String Problemas() {
  return R"(SOLUCIÓN DE PROBLEMAS

Las barras de conexión permanecen en color rojo claro:
- Encienda primero el equipo que comparte la carpeta "Multimedia".
- Presione "F10" y verifique la ruta de la carpeta compartida.
- Desactive los programas que bloquean el tráfico de archivos en la red.
- Consulte al administrador de la red.

Los códigos de barras se imprimen como letras y números:
- Instale la fuente que se encuentra en la carpeta "Fuentes".

El programa informa que faltan bibliotecas en el equipo:
- Instale los paquetes que el programa requiere e inícielo de nuevo.

)"_w;
}

String Comentarios() {
  return R"(COMENTARIOS

Escriba sus comentarios y sugerencias a la persona que instaló el programa.
)"_w;
}

}  // namespace

String TextoAyuda() {
  const String text = Titulo() + AcercaDe() + Teclas() + Porterias() + Problemas() + Comentarios();
  return ReplaceAll(text, "\n", "\r\n");
}

}  // namespace vintoral
