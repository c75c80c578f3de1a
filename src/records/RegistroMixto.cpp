#include "records/RegistroMixto.h"

#include <algorithm>
#include <optional>
#include <string>

#include "common/Numbers.h"
#include "records/Coding.h"

namespace vintoral {
namespace {

using Type = std::uint16_t;
constexpr Type kEmpty = 0;
constexpr Type kNumber = 2;
constexpr Type kText = 8;

constexpr std::size_t kTypeWidth = 2;
constexpr std::size_t kTextHead = kTypeWidth + 2;
/// Marca, Importe, Numero1, Numero2: they stand behind the two fields and move with their length.
constexpr std::size_t kTail = 2 + 8 + 2 + 2;
constexpr std::size_t kFullPiece = kTextHead + RegistroMixto::kPieza;
static_assert(2 * kFullPiece + kTail == RegistroMixto::kSize);

/// Takes values off the front of a record; past its end all is 0.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}

  template <class Value>
  Value Take() {
    std::array<char, coding::Code<Value>::kWidth> bytes{};
    const std::string_view found = TakeBytes(bytes.size());
    // Half a number is no number.
    if (found.size() == bytes.size()) std::copy(found.begin(), found.end(), bytes.begin());
    Value value{};
    coding::Code<Value>::Read(bytes.data(), value);
    return value;
  }

  CampoVariable TakeField() {
    const Type type = Take<Type>();
    if (type == kNumber) return Take<std::int16_t>();
    if (type == kText) return String(TakeBytes(Take<std::uint16_t>()));
    // A type that does not exist hides where the next field begins.
    if (type != kEmpty) rest_ = {};
    return std::monostate{};
  }

 private:
  std::string_view TakeBytes(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view rest_;
};

class Writer {
 public:
  explicit Writer(char* bytes) : at_(bytes) {}

  template <class Value>
  void Put(Value value) {
    coding::Code<Value>::Write(at_, value);
    at_ += coding::Code<Value>::kWidth;
  }

  /// A text is cut so that the field takes `most` bytes.
  void PutField(const CampoVariable& field, std::size_t most) {
    if (const auto* number = std::get_if<std::int16_t>(&field)) {
      Put<Type>(kNumber);
      Put(*number);
    } else if (const auto* text = std::get_if<String>(&field)) {
      const std::string_view cut = std::string_view(*text).substr(0, most - kTextHead);
      Put<Type>(kText);
      Put(static_cast<std::uint16_t>(cut.size()));
      at_ = std::copy(cut.begin(), cut.end(), at_);
    } else {
      Put<Type>(kEmpty);
    }
  }

 private:
  char* at_;
};

/// The bytes that a field asks for.
std::size_t WidthOf(const CampoVariable& field) {
  if (const auto* text = std::get_if<String>(&field)) return kTextHead + text->Size();
  return std::holds_alternative<std::int16_t>(field) ? kTypeWidth + 2 : kTypeWidth;
}

/// The bytes that the field at the start of `bytes` takes; nothing where that can't be told.
std::optional<std::size_t> FieldWidth(std::string_view bytes) {
  const auto number = [&](std::size_t at) {
    std::uint16_t value = 0;
    coding::Code<std::uint16_t>::Read(bytes.data() + at, value);
    return value;
  };
  if (bytes.size() < kTextHead) return std::nullopt;
  if (number(0) == kEmpty) return kTypeWidth;
  if (number(0) == kNumber) return kTypeWidth + 2;
  if (number(0) == kText) return kTextHead + number(kTypeWidth);
  return std::nullopt;
}

}  // namespace

String TextOf(const CampoVariable& field) {
  if (const auto* text = std::get_if<String>(&field)) return *text;
  if (const auto* number = std::get_if<std::int16_t>(&field)) return Digits(*number);
  return {};
}

std::int64_t NumberOf(const CampoVariable& field) {
  if (const auto* text = std::get_if<String>(&field)) return LeadingInteger(*text);
  if (const auto* number = std::get_if<std::int16_t>(&field)) return *number;
  return 0;
}

RegistroMixto RegistroMixto::Decode(std::span<const char, kSize> bytes) {
  Reader reader({bytes.data(), bytes.size()});
  RegistroMixto record;
  record.CampoA = reader.TakeField();
  record.CampoB = reader.TakeField();
  record.Marca = reader.Take<bool>();
  record.Importe = reader.Take<Money>();
  record.Numero1 = reader.Take<std::int16_t>();
  record.Numero2 = reader.Take<std::int16_t>();
  return record;
}

std::array<char, RegistroMixto::kSize> RegistroMixto::Encode() const {
  std::array<char, kSize> bytes{};
  // CampoA may take what CampoB leaves, but CampoB always keeps room for a full piece.
  const std::size_t both = kSize - kTail;
  const std::size_t mostOfA = both - std::min(WidthOf(CampoB), kFullPiece);
  const std::size_t mostOfB = both - std::min(WidthOf(CampoA), mostOfA);
  Writer writer(bytes.data());
  writer.PutField(CampoA, mostOfA);
  writer.PutField(CampoB, mostOfB);
  writer.Put(Marca);
  writer.Put(Importe);
  writer.Put(Numero1);
  writer.Put(Numero2);
  return bytes;
}

std::size_t RegistroMixto::Used(std::span<const char, kSize> bytes) {
  const std::string_view all(bytes.data(), bytes.size());
  const std::optional<std::size_t> first = FieldWidth(all);
  if (!first || *first > kSize) return kSize;
  const std::optional<std::size_t> second = FieldWidth(all.substr(*first));
  return second ? std::min(*first + *second + kTail, kSize) : kSize;
}

void RegistroMixto::EncodeOver(std::span<char, kSize> place) const {
  const std::array<char, kSize> bytes = Encode();
  std::copy_n(bytes.begin(), Used(bytes), place.begin());
}

}  // namespace vintoral
