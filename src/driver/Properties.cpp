#include "driver/Properties.h"

namespace vintoral {
namespace {

using Json = nlohmann::ordered_json;

template <class Texts>
Json TextList(const Texts& texts) {
  Json list = Json::array();
  for (const String& text : texts)
    list.push_back(text.ToUtf8());
  return list;
}

class PropertyWriter : public ControlVisitor {
 public:
  explicit PropertyWriter(Json& out) : out_(out) {}

  void Visit(TextBox& box) override {
    out_["Text"] = box.Text().ToUtf8();
    out_["Locked"] = box.Locked;
    out_["BackColor"] = box.BackColor;
    out_["SelStart"] = box.SelStart;
    out_["SelLength"] = box.SelLength;
    out_["MaxLength"] = box.MaxLength;
  }
  void Visit(Label& label) override {
    out_["Caption"] = label.Caption.ToUtf8();
    out_["BackColor"] = label.BackColor;
  }
  void Visit(ComboBox& list) override {
    out_["Text"] = list.Text().ToUtf8();
    out_["List"] = TextList(list.List());
    out_["ListIndex"] = list.ListIndex();
    out_["BackColor"] = list.BackColor;
    out_["SelStart"] = list.SelStart;
    out_["SelLength"] = list.SelLength;
  }
  void Visit(ListBox& list) override {
    out_["List"] = TextList(list.List);
    out_["ListIndex"] = list.ListIndex;
    out_["TopIndex"] = list.TopIndex;
    out_["Checked"] = list.Checked;
  }
  void Visit(CheckBox& box) override {
    out_["Caption"] = box.Caption.ToUtf8();
    out_["Value"] = box.Value;
  }
  void Visit(PictureBox& box) override {
    out_["BorderStyle"] = box.BorderStyle;
    out_["BackColor"] = box.BackColor;
    out_["Picture"] = !box.Picture.Empty();
  }
  void Visit(Image& image) override {
    out_["Picture"] = !image.Picture.Empty();
    out_["Caption"] = image.Caption.ToUtf8();
  }
  void Visit(CommandButton& button) override { out_["Caption"] = button.Caption.ToUtf8(); }
  void Visit(Frame& frame) override { out_["Caption"] = frame.Caption.ToUtf8(); }
  void Visit(Shape&) override {}
  void Visit(FileList& files) override {
    out_["List"] = TextList(files.List);
    out_["ListIndex"] = files.ListIndex;
  }
  void Visit(Timer& timer) override { out_["Interval"] = timer.Interval(); }
  void Visit(OptionButton& option) override {
    out_["Caption"] = option.Caption.ToUtf8();
    out_["Value"] = option.Value ? 1 : 0;
  }
  void Visit(Chart& chart) override { out_["Caption"] = chart.Caption.ToUtf8(); }

 private:
  Json& out_;
};

void AddStay(Json& state, const Form1& form) {
  state["DiasEstadia"] = form.Permanencia.dias;
  state["HorasEstadia"] = form.Permanencia.horas;
  state["MinutosEstadia"] = form.Permanencia.minutos;
  state["TiempoEstadia"] = form.TiempoEstadia.ToUtf8();
  state["ValorEstadia"] = form.ValorEstadia.Full().ToUtf8();
  state["PuntosAcumulados"] = form.PuntosAcumulados;
  state["PuntosEstadia"] = form.PuntosEstadia;
}

void AddMarks(Json& state, const Form1& form) {
  state["MarcaTiquete"] = form.MarcaTiquete.ToUtf8();
  state["MarcaSalidaPendiente"] = form.MarcaSalidaPendiente.ToUtf8();
  state["TextoSalida"] = form.TextoSalida.ToUtf8();
  state["MarcaTurno"] = form.MarcaTurno.ToUtf8();
  state["RutaFotoFicha"] = form.RutaFotoFicha.ToUtf8();
  state["NumeroFotos"] = form.NumeroFotos;
  state["FotoActual"] = form.FotoActual;
  state["FotoContinua"] = form.FotoContinua;
  state["RutaAppCamera"] = form.RutaAppCamera.ToUtf8();
  state["RutaFotosApp"] = form.RutaFotosApp.ToUtf8();
  state["UltimoError"] = form.dspPreview.UltimoError;
  state["BaseReloj"] = (DateText(form.BaseReloj) + " "_w + TimeText(form.BaseReloj)).ToUtf8();
  state["MinutoBase"] = form.MinutoBase;
  state["TiempoEjecucion"] = form.TiempoEjecucion;
}

void AddArticles(Json& state, const Form1& form) {
  state["CantidadArticulo"] = form.CantidadArticulo;
  state["PrecioArticulo"] = Json::array();
  for (const Money price : form.PrecioArticulo)
    state["PrecioArticulo"].push_back(price.Full().ToUtf8());
}

/// A format's text without its padding.
std::string TextOf(std::string_view field) {
  return TrimRight(field).ToUtf8();
}

void AddFormats(Json& state, const Form1& form) {
  const RegistroTiquete& ticket = form.TiqueteActual;
  state["RegistroTiquete"] = {{"Impresora", TextOf(ticket.Impresora.View())},
                              {"DimFuente", ticket.DimFuente},
                              {"Encabezado", TextOf(ticket.Encabezado.View())},
                              {"Foto", ticket.Foto},
                              {"Pie", TextOf(ticket.Pie.View())}};
  const RegistroFactura& invoice = form.FacturaActual;
  state["RegistroFactura"] = {{"Impresora", TextOf(invoice.Impresora.View())},
                              {"DimFuente", invoice.DimFuente},
                              {"Encabezado", TextOf(invoice.Encabezado.View())},
                              {"Prefijo", TextOf(invoice.Prefijo.View())},
                              {"NumFactura", invoice.NumFactura},
                              {"Impuesto", invoice.Impuesto},
                              {"ImpuestoExtras", invoice.ImpuestoExtras},
                              {"Copia", invoice.Copia},
                              {"Puntos", invoice.Puntos},
                              {"Pie", TextOf(invoice.Pie.View())}};
  state["ImprimirCampo"] = form.EtiquetasActuales.ImprimirCampo;
}

/// A control's name as operations give it.
std::string FullName(const Forms& forms, const Control& control) {
  const bool main = control.Owner == &forms.Main();
  return main ? control.Name : control.Owner->Name() + "." + control.Name;
}

void AddForms(Json& state, const Forms& forms) {
  const Control* const focus = forms.Active().Focus();
  state["focus"] = focus == nullptr ? Json(nullptr) : Json(FullName(forms, *focus));
  state["active"] = forms.Active().Name();
  state["forms"] = Json::array();
  for (const Form* form : forms.Loaded())
    state["forms"].push_back(form->Name());
}

}  // namespace

Json PropertiesOf(Control& control) {
  Json properties;
  properties["Enabled"] = control.Enabled;
  properties["Tag"] = control.Tag.ToUtf8();
  if (dynamic_cast<const Timer*>(&control) == nullptr) {  // which nobody ever sees
    properties["Visible"] = control.Visible;
    properties["ToolTipText"] = control.ToolTipText.ToUtf8();
  }
  PropertyWriter writer(properties);
  control.Accept(writer);
  return properties;
}

Json StateOf(const Form1& form) {
  Json state;
  state["NumeroPorteria"] = form.NumeroPorteria.ToUtf8();
  state["CarpetaCompartida"] = form.CarpetaCompartida.ToUtf8();
  state["EsCliente"] = form.EsCliente;
  state["TotalFichas"] = form.TotalFichas;
  state["PrimerNumero"] = form.PrimerNumero;
  state["LimiteFilas"] = form.LimiteFilas;
  state["InicioPagina"] = form.InicioPagina;
  state["TotalVista"] = form.TotalVista();
  state["NumeroUsuario"] = form.NumeroUsuario;
  state["Moneda"] = form.Moneda.ToUtf8();
  AddStay(state, form);
  AddMarks(state, form);
  AddFormats(state, form);
  AddArticles(state, form);
  state["FichaActual"] = FieldsOf(form.FichaActual);
  state["FichaAuxiliar"] = FieldsOf(form.FichaAuxiliar);
  state["TablaTarifas"] = TextList(form.TablaTarifas);
  state["TablaExtras"] = TextList(form.TablaExtras);
  state["TablaPrepago"] = TextList(form.TablaPrepago);
  AddForms(state, form.OpenForms);
  return state;
}

Json FieldsOf(const RegistroFicha& record) {
  Json fields;
  const auto text = [&](const char* name, std::string_view bytes) { fields[name] = Trim(bytes).ToUtf8(); };
  fields["EnUso"] = record.EnUso;
  text("MarcaEntrada", record.MarcaEntrada.View());
  text("MarcaSalida", record.MarcaSalida.View());
  text("NumeroFicha", record.NumeroFicha.View());
  text("Placa", record.Placa.View());
  text("Nombre", record.Nombre.View());
  text("Apellido", record.Apellido.View());
  text("Telefono", record.Telefono.View());
  text("Observacion", record.Observacion.View());
  text("Categoria", record.Categoria.View());
  text("PorteriaEntrada", record.PorteriaEntrada.View());
  text("PorteriaSalida", record.PorteriaSalida.View());
  fields["Posicion"] = record.Posicion;
  fields["ValorCobrado"] = record.ValorCobrado.Full().ToUtf8();
  fields["InicioTurno"] = record.InicioTurno;
  fields["UsuarioPuntos"] = record.UsuarioPuntos;
  return fields;
}

}  // namespace vintoral
