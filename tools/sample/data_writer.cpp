#include "tools/sample/data_writer.h"

#include <iterator>

namespace qvl::sample {
namespace {

constexpr std::string_view kCabinets[] = {"CAB1", "CAB7", "CAB8", "CAB11"};
constexpr std::string_view kStorageNames[] = {"", "CAB7", "STORE-2", "STORE-3"};
// The ticket numbers rise through the year.
constexpr std::uint32_t kFirstTicket = 4120;
constexpr std::uint32_t kMinutesPerTicket = 180;

// Most controllers have no name of their own and go by their slot.
constexpr std::string_view kBayNames[] = {"",       "", "", "Embedded slot", "Mezzanine slot 1",
                                          "Slot 12"};

void AddBoard(const Cast& cast, TextWriter& out) {
  if (cast.board == 0) return out.Add("the system memory");
  out.Add("board ");
  out.AddNumber(cast.board);
}

void AddVersion(std::uint32_t version, TextWriter& out) {
  out.AddNumber(version / 100);
  out.Add('.');
  out.AddNumber(version / 10 % 10);
  out.AddNumber(version % 10);
}

void AddChance(char letter, Random& random, TextWriter& out) {
  switch (letter) {
    case 'd':
      return out.AddNumber(random.Between(21, 34));
    case 'n':
      return out.AddNumber(random.Between(2, 38));
    case 'N':
      return out.AddNumber(random.Between(120, 2400));
    case 'r':
      return out.AddNumber(20 * random.Between(90, 260));
    case 'h':
      return out.AddHex(random.Word(), 4);
    case 'H':
      return out.AddHex(random.Word(), 8);
    default:
      return out.Add(letter);
  }
}

struct PartRow {
  char letter;
  std::uint8_t Cast::*part;
};
constexpr PartRow kParts[] = {
    {'f', &Cast::fan   },
    {'l', &Cast::blade },
    {'m', &Cast::module},
    {'o', &Cast::port  },
    {'s', &Cast::slot  },
    {'w', &Cast::supply},
    {'x', &Cast::box   },
    {'y', &Cast::bay   },
};

void AddPart(char letter, Scene& scene, TextWriter& out) {
  const Cast& cast = scene.cast;
  for (const PartRow& row : kParts) {
    if (row.letter == letter) return out.AddNumber(cast.*row.part);
  }
  switch (letter) {
    case 'b':
      return AddBoard(cast, out);
    case 'c':
      return out.Add(CabinetName(cast));
    case 'p':
      return out.AddNumber(cast.ProcessorNumber());
    case 'q':
      return AddModuleSerial(scene, cast.board, cast.module, out);
    case 'v':
    case 'V':
      return AddVersion(scene.machine.romVersion + (letter == 'V' ? 1 : 0), out);
    case 't':
      return out.AddNumber(kFirstTicket + scene.minute / kMinutesPerTicket);
    default:
      return AddChance(letter, scene.random, out);
  }
}

}  // namespace

std::string_view CabinetName(const Cast& cast) {
  return kCabinets[cast.chassis % std::size(kCabinets)];
}

std::string_view StorageName(const Cast& cast) {
  return kStorageNames[cast.box % std::size(kStorageNames)];
}

void AddModuleSerial(Scene& scene, std::size_t carrier, std::size_t module, TextWriter& out) {
  const std::uint64_t place = carrier * Machine::kModules + module;
  const std::uint64_t generation = scene.machine.replacements[carrier][module];
  out.AddSerial(scene.machine.seed ^ (1 + place) << 40U ^ generation << 20U, 8);
}

std::size_t PutText(Scene& scene, std::size_t offset) {
  TextWriter out(scene, offset);
  if (scene.kind.texts.empty()) return out.End();
  const auto count = static_cast<std::uint32_t>(scene.kind.texts.size());
  const std::string_view text = scene.kind.texts[scene.random.Below(count)];
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 1 < text.size()) {
      AddPart(text[++i], scene, out);
    } else {
      out.Add(text[i]);
    }
  }
  return out.End();
}

std::size_t PutName(Scene& scene, std::size_t offset, std::string_view name) {
  TextWriter out(scene, offset);
  out.Add(name);
  return out.End();
}

// Every third enclosure is known by its address only.
std::size_t PutEnclosure(Scene& scene, std::uint32_t type, std::size_t textOffset) {
  const std::uint32_t number = scene.cast.enclosure;
  PutByte(scene, 0, type);
  PutByte(scene, 1, type);
  PutByte(scene, 2, number);
  TextWriter out(scene, textOffset);
  if (number % 3 != 0) out.AddSerial(scene.machine.seed + std::uint64_t{type} * 256 + number, 12);
  return out.End();
}

std::size_t PutPlace(Scene& scene, std::size_t textOffset) {
  const Cast& cast = scene.cast;
  switch (cast.place) {
    case Place::kExternalChassis:
      PutByte(scene, 0, 1);
      PutByte(scene, 1, cast.chassis);
      return PutName(scene, textOffset, cast.chassis == 3 ? "" : CabinetName(cast));
    case Place::kExternalStorage:
    case Place::kInternalStorage:
      PutByte(scene, 0, cast.place == Place::kExternalStorage ? 2 : 3);
      PutByte(scene, 1, cast.slot);
      return PutName(scene, textOffset, StorageName(cast));
    case Place::kBladeEnclosure:
      return PutEnclosure(scene, 4, textOffset);
    case Place::kPowerEnclosure:
      return PutEnclosure(scene, 5, textOffset);
    default:
      PutByte(scene, 0, 1);
      return textOffset + 1;
  }
}

void PutStorageBox(Scene& scene, std::size_t port, std::size_t box, std::size_t texts) {
  const Cast& cast = scene.cast;
  PutByte(scene, 0, cast.isExternal ? 2 : 3);
  PutByte(scene, 1, cast.slot);
  PutByte(scene, port, '0' + 1U + cast.port % 3U);
  PutByte(scene, port + 1, cast.isExternal ? 'E' : 'I');
  PutByte(scene, box, cast.box);
  PutStorageNames(scene, texts);
}

void PutStorageNames(Scene& scene, std::size_t offset) {
  const Cast& cast = scene.cast;
  const std::string_view storage = cast.isExternal ? StorageName(cast) : "";
  PutName(scene, PutName(scene, offset, storage), kBayNames[cast.slot % std::size(kBayNames)]);
}

}  // namespace qvl::sample
