// Prints the slips that it is asked for on standard output, one line each, in the form that slip_reference.py
// tells; so that another reading of what a slip looks like can be held against this one.
#include <array>
#include <bit>
#include <cstdio>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "reports/Factura.h"
#include "reports/Tiquete.h"

namespace vintoral {
namespace {

unsigned Digit(char character) {
  return static_cast<unsigned>(character <= '9' ? character - '0' : character - 'a' + 10);
}

String FromHex(const std::string& word) {
  std::string bytes;
  for (std::size_t at = 0; at + 1 < word.size(); at += 2)
    bytes += static_cast<char>(static_cast<unsigned char>(Digit(word[at]) << 4 | Digit(word[at + 1])));
  return String(std::move(bytes));
}

std::string ToHex(const String& text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string word;
  for (const char byte : text.Bytes()) {
    word += kDigits[static_cast<unsigned char>(byte) >> 4];
    word += kDigits[static_cast<unsigned char>(byte) & 15];
  }
  return word.empty() ? "-" : word;
}

/// The words of a question, one after the other.
class Question {
 public:
  explicit Question(const std::string& line) : words_(line) {}

  std::string Word() {
    std::string word;
    if (!(words_ >> word)) throw std::runtime_error("a question is too short");
    return word;
  }
  String Text() { return FromHex(Word()); }
  std::int64_t Number() { return std::stoll(Word()); }
  bool Flag() { return Number() != 0; }
  float Single() { return std::bit_cast<float>(static_cast<std::uint32_t>(std::stoul(Word(), nullptr, 16))); }
  Moment When() { return Moment::FromMilliseconds(Number()); }
  /// Nothing where the word is "!".
  std::optional<String> MaybeText() {
    const std::string word = Word();
    if (word == "!") return std::nullopt;
    return FromHex(word);
  }

 private:
  std::istringstream words_;
};

DatosTiquete TicketOf(Question& question) {
  DatosTiquete datos;
  datos.formato.Impresora = question.Text();
  datos.formato.DimFuente = question.Single();
  datos.formato.Encabezado = question.Text();
  datos.formato.Foto = question.Flag();
  datos.formato.Pie = question.Text();
  datos.ficha = question.Text();
  datos.porteria = question.Text();
  datos.marca = question.Text();
  for (CampoImpreso& campo : datos.campos) {
    campo.imprimir = question.Flag();
    campo.etiqueta = question.Text();
    campo.valor = question.Text();
  }
  datos.categoria = question.Text();
  datos.foto = Picture(question.Text());
  datos.codigo = question.MaybeText();
  datos.validez.numero = question.Text();
  datos.validez.unidad = static_cast<int>(question.Number());
  datos.validez.hoy = question.When();
  datos.direccion = question.Text();
  return datos;
}

DatosFactura InvoiceOf(Question& question) {
  DatosFactura datos;
  datos.formato.Impresora = question.Text();
  datos.formato.DimFuente = question.Single();
  datos.formato.Encabezado = question.Text();
  datos.formato.Prefijo = question.Text();
  datos.formato.NumFactura = static_cast<std::int32_t>(question.Number());
  datos.formato.Pie = question.Text();
  datos.porteria = question.Text();
  datos.moneda = question.Text();
  datos.valor = Money::FromRaw(question.Number());
  datos.detalle = question.Text();
  datos.porcentaje = question.Single();
  const std::optional<String> cash = question.MaybeText(), change = question.MaybeText();
  if (cash) datos.efectivo = {*cash, *change};
  datos.ahora = question.When();
  datos.direccion = question.Text();
  return datos;
}

std::string Told(const PrintOperation& operation) {
  std::array<char, 128> text{};
  switch (operation.kind) {
    case PrintOperation::Kind::kText:
      std::snprintf(text.data(), text.size(), "t,%d,%d,%.17g,%d,", operation.x, operation.y,
                    operation.fontSize, static_cast<int>(operation.fontBold));
      return text.data() + ToHex(operation.fontName) + "," + ToHex(operation.text);
    case PrintOperation::Kind::kPicture:
      std::snprintf(text.data(), text.size(), "p,%d,%d,%d,%d,", operation.x, operation.y, operation.width,
                    operation.height);
      return text.data() + ToHex(operation.picture.Path());
    case PrintOperation::Kind::kAddFont:
      return "+," + ToHex(operation.text);
    case PrintOperation::Kind::kRemoveFont:
      return "-," + ToHex(operation.text);
  }
  return "?";
}

void Tell(const PrintDocument& document) {
  std::cout << ToHex(document.PrinterWanted) << ' ' << document.Height();
  for (const PrintOperation& operation : document.Operations())
    std::cout << ' ' << Told(operation);
}

void AnswerAll() {
  for (std::string line; std::getline(std::cin, line); std::cout << '\n') {
    Question question(line);
    if (question.Word() == "T") {
      Tell(TiqueteImpreso(TicketOf(question)));
    } else {
      const DatosFactura datos = InvoiceOf(question);
      Tell(FacturaImpresa(datos));
      std::cout << " | " << ToHex(FacturaEnRegistro(datos));
    }
  }
}

}  // namespace
}  // namespace vintoral

int main() {
  vintoral::AnswerAll();
}
