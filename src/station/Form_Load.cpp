#include <tuple>

#include "camera/DSPreview/CamarasRed.h"
#include "common/Outcome.h"
#include "station/form1/Archivos.h"
#include "station/form1/Correo.h"
#include "station/form1/Form1.h"
#include "station/form1/Funciones.h"
#include "station/form1/ListaVentas.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

bool IsSecondInstance(const Platform& platform) {
  return platform.system.CountInstances() > 1 && !platform.disk.Exists(archivo::kReinicio);
}

void MakeInvoiceHistory(Disk& disk) {
  if (!disk.Exists(archivo::kFacturas)) disk.Replace(archivo::kFacturas, "").PassOver();
}

}  // namespace

void Form1::Form_Load() {
  if (IsSecondInstance(platform_)) return Terminar();
  CrearCarpetas();
  if (!CargarServidor()) return;
  CargarAppCamera();
  CrearCamarasRed(platform_.disk);
  WebCamCargar();
  EscribirAyuda();
  if (Terminado()) return;
  CrearAccesoDirecto();
  if (Terminado()) return;
  MostrarPorteria();
  TotalFichas = 1000;
  LimiteFilas = 10946;
  InicioPagina = 1;
  if (!CrearArchivoACT() || !CrearArchivoHST()) return;
  CrearArchivoNSR();
  CrearArchivoCDB();
  CrearArchivoCRD();
  MakeInvoiceHistory(platform_.disk);
  std::ignore = DireccionWeb();  // the file that names it is made
  CrearCorreo(platform_.disk);
  CargarMoneda();
  CrearTablasPredeterminadas();
  CargarEtiquetas();
  AsentarListaVentas(platform_.disk).PassOver();
  CargarContraseña();
  CargarTablas();
  CargarTiquete();
  CargarFactura();
  CargarEstadoPantalla();
  CargarDatosCall();
  CargarMarcas();
  MostrarFondo();
  RegistrarHoraTrabajo(funcion::kEnEjecucion);
  RegistrarHoraTrabajo(funcion::kAbrirPrograma);
  MidiWav(sonido::kConectando);
  BaseReloj = platform_.clock.Now();
  MinutoBase = BaseReloj.Parts().minute;
  TmrHorario.SetEnabled(true);
  iniciado_ = true;
}

}  // namespace vintoral
