// The main screen, and with it the station: the operator has one screen, so the station is one class.
//
// This header is its table of contents. Each operation is defined in a file of its own name in its
// subsystem's folder (the five CrearArchivo in CrearArchivos.cpp, both pages in Paginas.cpp, the pointer's
// ways out of a cell in EstadoCelda.cpp; in Form1.cpp how
// the form is wired, where its focus goes and what operations of several folders share), and reads as the
// list of what happens. Its steps are functions of that file; what can be said without the screen is a plain
// function elsewhere.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "common/Moment.h"
#include "common/Money.h"
#include "common/String.h"
#include "platform/Platform.h"
#include "records/RegistroEtiquetas.h"
#include "records/RegistroFicha.h"
#include "records/RegistroUsuario.h"
#include "station/form1/Impresos.h"
#include "station/form1/Lectura.h"
#include "station/form1/PuestoLiberado.h"
#include "station/form1/ScreenModel.h"
#include "station/form1/Sellos.h"
#include "station/forms/Forms.h"
#include "tariffs/Estadia.h"

namespace vintoral {

class Form2;
class Form3;
class Form4;
class Form5;
class Form6;
class Form7;
class Form8;
class Form9;

class Form1 : public ScreenModel {
 public:
  /// The screen as designed; nothing is read or written before Form_Load. The devices outlive the station.
  explicit Form1(const Platform& platform);

  // ---- Values of the run
  // -------------------------------------------------------------------------------------
  String NumeroPorteria;          ///< "01" the main gate, "02" every connected one
  String CarpetaCompartida;       ///< the data folder, as the operator reads it
  std::int16_t EsCliente = 0;     ///< -1 at a connected gate
  std::int32_t TotalFichas = 0;   ///< 1000; 0 while the station starts or has stopped
  std::int32_t PrimerNumero = 1;  ///< where the number generator starts
  std::int32_t LimiteFilas = 0;   ///< highest row count of the document-and-points report

  RegistroFicha FichaActual;    ///< the ficha being saved, retired or shown
  RegistroFicha FichaAuxiliar;  ///< for history work, so that it never disturbs FichaActual
  RegistroUsuario UsuarioActual;
  RegistroEtiquetas EtiquetasActuales;
  /// How tickets and invoices are printed, as long as the program runs: what could not be saved counts too.
  RegistroTiquete TiqueteActual;
  RegistroFactura FacturaActual;
  /// The user that a ficha saved now belongs to: the one who has the plate, or the number that a new one
  /// would get; 0 without a plate.
  std::int32_t NumeroUsuario = 0;
  std::int32_t UsuarioEnFormulario = 0;  ///< the user whose record filled the form in, 0 for none
  String CarpetaMostrada;                ///< the data folder that the ficha on the screen was read from
  std::vector<PuestoLiberado>
      PuestosPendientes;                   ///< to be given back when their folder is there, the oldest first
  std::int64_t NumeroPase = 0;             ///< the record in CFR of the pass on the screen, 0 for none
  std::vector<RegistroFicha> VistaFichas;  ///< element 0 is record 1 of the view
  std::int32_t InicioPagina = 1;           ///< first record of the grid page, from 1
  std::int32_t TotalVista() const { return static_cast<std::int32_t>(VistaFichas.size()); }
  /// The records of the grid page, one for each cell in use.
  std::span<const RegistroFicha> Pagina() const;

  std::vector<String> TablaTarifas, TablaExtras, TablaPrepago;  ///< element 0 is line 1
  static constexpr std::size_t kAnchoMoneda = 10;
  String Moneda;                    ///< currency symbol, at most kAnchoMoneda characters
  std::array<String, 7> DatosCall;  ///< the seven panic values

  Estadia Permanencia;   ///< DiasEstadia, HorasEstadia, MinutosEstadia
  String TiempoEstadia;  ///< "02H 30M "
  Money ValorEstadia;
  std::int64_t PuntosAcumulados = 0, PuntosEstadia = 0;

  String MarcaTiquete;          ///< the entry stamp just saved
  String MarcaSalidaPendiente;  ///< the exit stamp fixed when a ficha was called up
  String TextoSalida;           ///< the exit stamp of the ficha being retired
  bool TurnoActivo = false;     ///< a shift is under way
  String MarcaTurno;            ///< the start of the shift, "hh:mm  (dd/MM/yyyy)"
  String RutaFotoFicha;         ///< the photo stored last for a ficha that came in

  std::int16_t NumeroFotos = 0;   ///< additional photos of the ficha on the screen
  std::int16_t FotoActual = 0;    ///< the one shown; 0 is the main picture
  std::int16_t FotoContinua = 0;  ///< photos left to take; 0 means that taking is off
  String CarpetaFotos;            ///< where those of a new ficha lie
  String RutaAppCamera;           ///< what to open to start the outside camera program
  String RutaFotosApp;            ///< the folder where that program leaves pictures; may be missing

  /// One entry for each article that is for sale, element 0 of index 0 of LstArticulo.
  std::vector<std::int16_t> CantidadArticulo;
  std::vector<Money> PrecioArticulo;

  String ContraseñaActual;     ///< of the lock of functions: five digits, or empty for none
  String FuncionesBloqueadas;  ///< a digit for each function that can be locked, "1" for locked

  Moment BaseReloj;                  ///< the clock that the last tick saw
  int MinutoBase = 0;                ///< the minute of the hour at the last count
  std::int64_t TiempoEjecucion = 0;  ///< minutes of run time counted

  /// True once the program is ending: nothing is handled any more.
  bool Terminado() const { return OpenForms.Ended(); }

  // ---- Start and end
  // -----------------------------------------------------------------------------------------
  /// The start sequence. Check Terminado afterwards.
  void Form_Load();
  /// The operator closes the window: asks, and on yes unloads and ends the program.
  void CerrarVentana();
  /// The session ends, and nobody is there to be asked: stores what closing stores and ends the program. A
  /// station that is still starting has nothing to store yet. A box that is up answers the harmless way.
  void CerrarSinPreguntar();
  /// Asks whether to close; false keeps the station open. Asks nothing when the station has been stopped
  /// already.
  bool Form_QueryUnload() override;
  void Form_Unload() override;
  void CloseBox(Forms& /*forms*/) override { CerrarVentana(); }
  /// The station can't go on: stores what closing stores, as far as it can be written (nothing while it is
  /// still starting), says why in a box and ends the program.
  void Detener(const String& texto);
  void CrearCarpetas();
  void EscribirAyuda();
  void CrearAccesoDirecto();
  void MostrarFondo();

  // ---- Commands
  // ----------------------------------------------------------------------------------------------
  /// A key as the form sees it, before its controls: virtual key code and mask (1 shift, 2 control, 4 alt).
  /// True when a command was carried out.
  bool Form_KeyDown(int KeyCode, int Shift) override;
  /// Typing that would be lost, in the tool bar or in a field that the record under the pointer hides, goes
  /// where typing continues.
  bool Form_KeyPress(char character) override;
  void PctBoton_Click(int Index);
  /// Sets the tooltip that goes with the button's state.
  void PctBoton_MouseMove(int Index);
  void GeneradorClick();  ///< CmdBarCode and CmdNumeroFicha
  /// Tickets are on, and no ficha is being typed or on display.
  bool PuedeGenerar() const;
  /// The points of the ficha on display are redeemed; the register learns of it when the ficha is retired.
  void ReiniciarPuntos();
  void ImgCambiarFondo_Click();
  void Cancelar();  ///< as if Esc had been pressed
  void AlternarMemoriaRostros();
  void AlternarCodigoBarras();
  void AbrirTarifas();
  void OlvidarServidor();

  // ---- Screen
  // ------------------------------------------------------------------------------------------------
  void LimpiarPantalla();
  void LimpiarCampos();
  /// The live picture, or what stands in for it while the camera is off, instead of a still and its message.
  void MostrarImagenEnVivo();
  void CambiarModoFicha();
  void EtiquetaMonitor();
  void AbrirEtiqueta(std::size_t index);
  void CerrarEtiqueta(std::size_t index);
  void FocoPrimerCampo();     ///< to the first field that takes typing, to the tool bar where none does
  void FocoDondeSeEscribe();  ///< the keyboard goes back to where typing continues
  /// The number in the first field, 0 when there is none.
  std::int64_t NumeroEscrito() const;
  /// Is there a slot of that number?
  bool HayPuesto(std::int64_t numero) const { return numero >= 1 && numero <= TotalFichas; }
  /// The link is up: the data folder was there at the last look.
  bool Conectada() const { return LblConexion[0].BackColor == kLightGreen; }
  /// All six fields are locked: a ficha is on display.
  bool FichaEnPantalla() const;
  /// A ficha is being typed or is on display: the grid holds still.
  bool FichaEnCurso() const;

  // ---- Clock and timers
  // --------------------------------------------------------------------------------------
  void TmrHoraFecha_Timer();
  void TmrHorario_Timer();
  void TmrMonitor_Timer();
  void TmrConexion_Timer();
  void TmrBarCode_Timer();

  // ---- Registers and settings
  // --------------------------------------------------------------------------------
  bool CrearArchivoACT();  ///< false: the program ends
  bool CrearArchivoHST();  ///< false: the program ends
  void CrearArchivoNSR();
  void CrearArchivoCDB();
  void CrearArchivoCRD();
  void CargarArchivoACT();
  void CargarSalidasHST();
  void LiberarMemoria();
  void CargarMoneda();
  /// Labels, face memory and print flags of the data folder, if it is there. The first label names the field
  /// of the mode that is on, and stays in barcode mode.
  void CargarEtiquetas();
  /// Writes them where they were read; nothing before.
  void GuardarEtiquetas();
  /// Another folder is the data folder now: the labels are those of the form as designed until it is found.
  void OlvidarEtiquetas();
  void CargarEstadoPantalla();
  void GuardarEstadoPantalla();
  void CargarDatosCall();
  /// The product's web address, without a slash at its end, as Objetos\Web.INI has it; makes that file when
  /// it is missing.
  String DireccionWeb();
  void CargarMarcas();
  void GuardarMarcas();

  // ---- Tariffs
  // -----------------------------------------------------------------------------------------------
  void CrearTablasPredeterminadas();
  void CargarTablas();
  /// Stay between two "dd/MM/yyyy hh:mm:ss" texts: sets Permanencia and returns the stay text, "??" for none.
  String CalcularTiempo(std::string_view entrada, std::string_view salida);
  Money CalcularValor();

  /// The tariff dialog, null while it is not loaded. Its boxes that have changed have the tag 1.
  class Form6* Form6 = nullptr;
  /// The tables into their boxes.
  void ImprimirTarifas();
  /// Changed boxes into their tables; the categories follow the tariffs. A box that was emptied leaves its
  /// table as it is.
  void ActualizarTarifas();
  /// The tables of changed boxes into their files, up to the first file that can't be written.
  void CopiarTarifas();
  /// A changed currency box into Moneda and its file; into neither when the file can't be written.
  void CopiarMoneda();

  // ---- Entry and exit
  // ----------------------------------------------------------------------------------------
  /// Enter in a field of the ficha: what it does there, and on to the next.
  void AvanzarCampo(std::size_t index);
  void GuardarFicha();
  void RetirarFicha();
  /// False when the history has no room for the row or can't be written; a history that is missing is passed
  /// over.
  bool RegistrarHistorial();
  void LineaEfectivo();  ///< one step of the cash line
  void MostrarFicha();
  /// True when a registered user has the plate. The data of user `enFormulario` stand in the form already and
  /// are not filled in again: what the operator changed since, the category above all, is what he wants to
  /// save.
  bool BuscarUsuario(std::int32_t enFormulario = 0);
  /// The points of a user, who becomes UsuarioActual; 0 for no user, and when they can't be read.
  std::int64_t LeerPuntosUsuario(std::int32_t numero);
  /// Writes what the form tells of its user, over him or as a new one, and gives FichaActual the number that
  /// was written, 0 where none could be. True when he is the last one who was registered: then FichaActual is
  /// kept as the ficha with which he came.
  bool GuardarUsuario();
  /// The photo of the ficha just saved becomes its user's, and that of the `primera` visit too.
  void GuardarFotosUsuario(std::int32_t numero, bool primera);
  /// FichaActual is a row of the history: its points become those of user `numero`, and a movement. Nothing
  /// for nobody.
  void AcumularPuntos(std::int32_t numero);
  /// The next free number of this gate opens its form, in barcode mode with a new code.
  void GenerarFicha();
  /// A code into TxtBarCode that no ficha inside and no pass has.
  void GenerarCodigoBarras();
  /// The code on the screen becomes that of FichaActual, or its record is blanked.
  void GuardarCodigoBarras(bool activo);
  /// Makes the pass on the screen, or takes an entry from it, and lets its ficha in: `entrar` writes that,
  /// and tells whether it could. False, and nothing written, when another gate took the last entry meanwhile.
  bool GuardarPase(const std::function<bool()>& entrar);
  /// A character more or less of a code.
  void TxtBarCode_Change();
  /// A whole code stands on the screen: the ficha that is inside with it is shown, or a pass enters.
  void BuscarCodigoBarras();
  /// True when a pass allows this entry; it is on the screen then. One that has run out is freed.
  bool ValidarPase();
  /// The ficha on display: the row of the view that was pointed at, or else FichaActual.
  const RegistroFicha& FichaMostrada() const;

  // ---- Camera and photos
  // ---------------------------------------------------------------------------------------
  /// The cameras into CboDriver, and the one chosen that the gate used last. With none the station goes over
  /// to the outside camera program.
  void WebCamCargar();
  void WebCamDesconectar();
  void WebCamGuardarIndice();
  /// Connects the camera anew; with the mask of control alone, the next one of the list.
  void WebCamConectar(int mask);
  /// The camera of this machine is off for good: Ctrl+Alt+W.
  void DesactivarCamara();
  /// Where the station went over to the outside program for want of a camera, and one has come: back to it.
  void BuscarCamara();
  /// The settings of the camera that runs, in a dialog where it offers any, and the camera anew.
  void ConfigurarCamara();
  void CargarAppCamera();
  /// The folder of the outside camera program is there.
  bool HayFotosApp() const;
  void AbrirAppCamera();
  /// A frame into Picture4, and as a photo into Picture2; neither holds anything when none came.
  void CapturarFoto();
  /// What Picture2 shows, as pixels of a photo's size; false when it shows nothing.
  bool TomarFotoFija();
  /// Stamps the photo in Picture2.
  void SellarFoto(LugarSello lugar, const String& texto);
  /// The photo in Picture2 into a file, in place of what stood there; false when there is no photo or no
  /// file.
  bool GuardarFotoJPEG(const String& ruta);
  /// The same beside the sale, with copies in place of what stands there; false when there is no photo.
  bool GuardarFotoDetras(const String& ruta, std::vector<String> copias);
  /// A photo of the grid was still being written when the page was drawn last.
  bool FotoDetras = false;
  /// Ctrl+A (0) takes one additional photo of a new ficha, Ctrl+X (1) ten, a second apart.
  void PctFotoDetalle_Click(int Index);
  void TomarFotoAdicional();
  /// The additional photos of a new ficha lie under the plate that it has by now.
  void AcomodarFotos();
  /// Turns the additional photos of the ficha on display: 0 back, 1 forward.
  void ImgFotoDetalle_Click(int Index);
  /// How many additional photos FichaActual has; the arrows for them.
  void MostrarFotosAdicionales();
  /// No more photos are taken; those of a ficha that is not saved are deleted.
  void BorrarFotosSinGuardar();
  /// FichaActual has left: its folder of photos gets its final name, or goes where it holds nothing more than
  /// a copy of the main picture.
  void CerrarFotosAdicionales();
  /// What the outside camera program has left belongs to the ficha of this plate and number. RutaFotoFicha is
  /// its main picture, or empty.
  void CargarFotosApp(std::string_view placa, std::int64_t numero);
  /// A slice of the daily deletion of photos that are older than the site keeps them; the main gate's alone.
  void LimpiarFotosViejas();
  bool ExisteCarpeta(const String& ruta) const;
  /// These four do nothing where there is nothing to do; failures are passed over.
  void CrearCarpeta(const String& ruta);
  void CopiarCarpeta(const String& origen, const String& destino);
  void MoverCarpeta(const String& origen, const String& destino);
  void BorrarCarpeta(const String& ruta);

  // ---- Link and grid
  // -----------------------------------------------------------------------------------------
  /// False: the program ends.
  bool CargarServidor();
  /// What the screen says of the gate's number, and where its generator starts.
  void MostrarPorteria();
  /// The grid as the register stands now.
  void RefrescarVista();
  /// The set of the grid into the view: who has left while that monitor is on, else who is inside.
  void CargarVista();
  /// Draws the page at InicioPagina. The cell under the pointer and the frame of the ficha on display follow
  /// what is drawn.
  void ImprimirIndice();
  void RetrocederPagina();
  void AvanzarPagina();
  /// Shows the record of a cell (from 0) as if the pointer had come to it; false where that changes nothing.
  bool SenalarCelda(int cell);
  void ImgFicha_MouseMove(int cell);
  void ImgFicha_Click(int cell);
  /// The pointer has left the grid: typing goes on at the number, or with the reader's codes.
  void SalirDeCelda();
  /// The face of entry comes back under a pointer that may rest where it is; the keyboard stays where it is.
  void QuitarCelda();
  void Form_MouseMove() override { SalirDeCelda(); }
  /// The face of the screen that shows a cell's record, or the one that takes a new ficha.
  void EstadoCelda(bool mostrar, bool conservarFoto);
  /// The frame around the cell of the ficha on display, or in its default place when that is not on the page.
  void MarcarCelda();
  /// A row of the record shown: its number is looked up as if it had been typed.
  void LblCampo_Click();
  /// A photo that was shown as `mark` says turned out to be no picture.
  void FotoDanada(const String& foto, const FileMark& mark);
  /// How many of the grid's records have the category on the screen; told for two seconds.
  void ImgContador_Click();
  /// On, or off where it was on; `monitor` is its button.
  void CambiarMonitor(boton::Index monitor);
  /// The minutes of the monitor that is on were chosen or typed.
  void CambiarMinutos();
  /// The path of a file in the data folder.
  String RutaCompartida(std::string_view file) const;
  /// The same in the folder that the ficha on the screen was read from, as long as it is on the screen.
  String RutaMostrada(std::string_view file) const;
  /// Is ACT there? If not, the link watch looks at once.
  bool HayConexion();
  /// PuestosPendientes are given back, as far as the data folder can be reached. Where a slot is no longer as
  /// this gate left it - another has filled it since, or has let the same ficha out - nothing is left to give
  /// back.
  void DevolverPuestos();
  /// The link watch looks at once: an operation has missed what should be in the data folder.
  void BuscarEnlaceYa();

  // ---- Tickets and invoices
  // ----------------------------------------------------------------------------------
  /// The formats that are on disk; one that is missing leaves its record empty.
  void CargarTiquete();
  void CargarFactura();
  /// The dialogs that edit them, null while they are not loaded.
  class Form3* Form3 = nullptr;
  class Form8* Form8 = nullptr;
  /// The ticks of a dialog into the print flags, which both formats share.
  void ActualizarLineaTQT();
  void ActualizarLineaFCT();
  /// The format of the dialog into memory and its file.
  void CopiarTiquete();
  /// The same, or, without the dialog, the next number; both are in the file as a whole or not at all.
  void CopiarFactura(bool desdeEditor);
  /// The switches of the tool bar: off, they open their dialog; on, they are switched off after a question.
  void AlternarTiquetes();
  void AlternarFacturas();
  /// Tickets are printed from here on, and fichas can be numbered by the generator.
  void ActivarTiquetes();
  /// The tag of a switch that opens its dialog even when it is on.
  static constexpr std::int64_t kSoloFormato = 1;
  /// Invoices are printed from here on, for the ficha on display too.
  void ActivarFacturas();
  /// Opens the dialog of a switch whatever its state.
  void CambiarFormato(boton::Index interruptor);
  /// The ticket of what stands on the screen.
  PrintDocument TiqueteEnPantalla();
  void ImprimirTiquete(PrintDocument tiquete);
  /// An invoice of this gate, as of now, with the number last taken and the cash line as it stands.
  DatosFactura FacturaDe(Money valor, const String& detalle, float porcentaje);
  /// The invoice log for one more invoice, which goes to the disk while the rest of its operation does.
  /// Called as soon as it is known that there will be one.
  std::unique_ptr<Replacement> AbrirRegistroFacturas();
  /// Puts it at the top of the log, where nobody sees it before ImprimirFactura.
  void RegistrarFactura(const DatosFactura& factura, Replacement& registro);
  /// Prints it, has it seen in the log, and notes its second copy.
  void ImprimirFactura(const DatosFactura& factura, Replacement& registro);
  /// Waits for the second copies that were noted and prints each five seconds behind its first one; the
  /// screen is served meanwhile. Under such a wait there is nothing to do: it serves those too.
  void EntregarCopias();
  /// By a clock that nobody sets, so midnight makes no difference. Less than nothing is no wait.
  void Esperar(std::int64_t milisegundos);

  // ---- Extras
  // ------------------------------------------------------------------------------------------------
  /// The dialog in which articles are sold, null while it is not loaded.
  class Form4* Form4 = nullptr;
  /// Opens it with the articles of TablaExtras.
  void AbrirExtras();
  /// The articles of TablaExtras into Form4 and the two tables beside it.
  void CargarArticulosExtras();
  /// What is ticked in Form4 becomes the newest lines of the list of sales.
  void RegistrarValorExtra();
  /// After two questions the list reads as empty; what was sold stays in the file.
  void ReiniciarContadorExtras();

  // ---- Lock, log, alarm and menu
  // ------------------------------------------------------------------------------------------------
  /// The keypad of the lock, null while it is not loaded. It stays loaded, hidden, while its functions are
  /// open.
  class Form7* Form7 = nullptr;
  /// F9: the keypad, as it was left where it is loaded.
  void AbrirBloqueo();
  /// Password and selection, and the indicator that shows when they lock.
  void CargarContraseña();
  void CopiarContraseña();
  /// May the function run whose digit is `bit`? Where it may not, a box says so.
  bool ExisteFuncion(std::uint8_t bit, bool omitir);
  /// The same of a position in FuncionesBloqueadas, from 1; 0 is none, and may.
  bool Permite(int posicion);
  /// One more entry of the log: `Funcion` is its code, "0" the running time.
  void RegistrarHoraTrabajo(std::string_view Funcion);
  /// The log as a text, in the user's editor.
  void ImprimirHoraTrabajo();
  /// The dialog of the alarm, null while it is not loaded.
  class Form9* Form9 = nullptr;
  /// Ctrl+Alt+P: disarms the alarm after a question, or opens its dialog.
  void AlternarPanico();
  /// What stands in that dialog into memory and its file; the alarm is armed.
  void GuardarDatosCall();
  void ImgPanico_Click();
  /// The alert goes out while the screen is served; returns when it has, or has failed.
  void EnviarAlerta();
  /// The menu of functions, null while it is not loaded.
  class Form5* Form5 = nullptr;
  void AbrirMenu();

  // ---- Shifts, search and reports
  // ------------------------------------------------------------------------------------------------
  /// Marks the newest record of each register as the last one before the shift.
  void IniciarTurno();
  /// After two questions the history of the station that holds the data folder begins anew.
  void ReiniciarHistorial();
  /// The search of records, null while it is not loaded.
  class Form2* Form2 = nullptr;
  /// F5: opens it, or closes it.
  void AlternarBusqueda();
  /// The fichas that Form2 asks for into the view; the operator is told when there are none.
  void CargarArchivoHST();
  /// Deletes the pages and lists of earlier reports.
  void BorrarReportes();
  /// F4: asks about slips where they are printed, and reports what the grid or the screen shows.
  void ImprimirRegistros();
  /// The reports as a page, and on slips where `formatoTiquete` says so: row by row, or without `detalle` as
  /// a summary alone.
  void ImprimirEstado(bool formatoTiquete, bool detalle);
  void ImprimirHistorial(bool formatoTiquete, bool detalle);
  /// The extras sold, by day and article, and line by line; as a text in the user's editor.
  void ImprimirValorExtra();
  void ImprimirContadorExtra();
  /// New users (Vintoral.NSR) or movements of points (Vintoral.CRD) as a page.
  void ImprimirDocumentoID(std::string_view archivo);

  // ---- Sounds
  // ------------------------------------------------------------------------------------------------
  void MidiWav(std::string_view file);

  const Platform& Devices() const { return platform_; }

  // ---- Dialogs
  // -----------------------------------------------------------------------------------------------
  /// The forms that are loaded, this one first: dialogs are opened and closed here.
  Forms OpenForms;

 private:
  void Terminar();
  bool Preguntar(const String& titulo, const String& texto, Answer preseleccionada);
  String ProtegidaContraEscritura() const;
  void ConectarCampos();
  void ConectarEtiquetas();
  void ConectarBotones();
  void ConectarRejilla();
  void ConectarRelojes();
  void ConectarCamara();
  void ClickEnBarra(int index);

  /// A copy that waits for the one before it to be torn off.
  struct Copia {
    PrintDocument documento;
    std::int64_t momento;  ///< in Clock::Ticks
  };

  static constexpr std::size_t kLargoValidez = 3;

  Platform platform_;
  Lectura lectura_{*this};
  std::deque<Copia> copias_;
  bool entregandoCopias_ = false;
  /// The start sequence is through: only then are the screen's state and the labels this station's own.
  bool iniciado_ = false;
  /// The labels of the data folder have been seen: only then may this gate write its own over them.
  bool etiquetasLeidas_ = false;
  /// The station went over to the outside camera program because there was no camera, not because somebody
  /// wanted it to.
  bool sinCamaras_ = false;
  std::shared_ptr<class Retencion> retencion_;  ///< the deletion of old photos that is under way
  String diaRetencion_;                         ///< the day on which it was begun last, "dd/MM/yyyy"
};

}  // namespace vintoral
