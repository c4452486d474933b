#include "tools/sample/event_fills.h"

#include <algorithm>

#include "tools/sample/data_writer.h"

namespace qvl::sample {
namespace {

constexpr std::uint8_t kSupplyFailures[] = {0, 0, 1, 2, 2, 2, 5, 6, 7, 9, 12, 13, 14};
constexpr std::uint8_t kLineVoltages[] = {200, 208, 220, 230, 240};

// An adapter's chassis is the server itself but for an external one.
bool IsInExternalChassis(const Cast& cast) {
  return cast.place == Place::kExternalChassis;
}

std::uint32_t EnclosureType(const Cast& cast) {
  return cast.place == Place::kPowerEnclosure ? 5 : 4;
}

void PutAdapterChassis(Scene& scene, std::size_t textOffset) {
  const bool isExternal = IsInExternalChassis(scene.cast);
  if (isExternal) PutByte(scene, 1, scene.cast.chassis);
  PutText(scene, PutName(scene, textOffset, isExternal ? CabinetName(scene.cast) : ""));
}

}  // namespace

void FillNothing(Scene&) {}
void FillText(Scene& scene) {
  PutText(scene, scene.kind.selector);
}
void FillSelector(Scene& scene) {
  PutByte(scene, 0, scene.kind.selector);
}

void FillFan(Scene& scene) {
  PutByte(scene, 3, scene.cast.fan);
  PutByte(scene, 4, scene.cast.location);
  PutText(scene, PutPlace(scene, 5));
}

void FillFansNotRedundant(Scene& scene) {
  PutByte(scene, 3, scene.cast.location);
  PutPlace(scene, 4);
}

void FillSharedLocation(Scene& scene) {
  PutByte(scene, 4, scene.cast.location);
}

// selector: the lowest temperature.
void FillHeat(Scene& scene) {
  PutByte(scene, 3, scene.cast.zone);
  PutByte(scene, 4, scene.random.Percent(40) ? 8U : scene.cast.location);
  PutByte(scene, 5, scene.kind.selector + scene.random.Below(14));
  PutText(scene, PutPlace(scene, 6));
}

// selector: 0 a fan, 1 a temperature zone.
void FillStorageCooling(Scene& scene) {
  PutStorageBox(scene, 5, 7, 8);
  PutByte(scene, 3, scene.kind.selector == 0 ? scene.cast.fan : scene.cast.zone);
  PutByte(scene, 4, scene.kind.selector == 0 ? 5 : 12);
}

void FillStorageFanModule(Scene& scene) {
  PutStorageBox(scene, 6, 8, 9);
  PutByte(scene, 3, scene.random.Percent(60) ? 1U + scene.cast.fan % 2U : 0U);
  PutByte(scene, 4, 1U + scene.cast.fan % 4U);
  PutByte(scene, 5, 5);
}

void FillModule(Scene& scene) {
  PutByte(scene, 0, scene.cast.board);
  PutByte(scene, 1, scene.cast.module);
  TextWriter out(scene, 2);
  AddModuleSerial(scene, scene.cast.board, scene.cast.module, out);
}

void FillProcessorModule(Scene& scene) {
  PutByte(scene, 0, scene.cast.ProcessorNumber());
  PutByte(scene, 1, scene.cast.module);
  TextWriter out(scene, 2);
  AddModuleSerial(scene, kFirstProcessorCarrier + scene.cast.ProcessorNumber(), scene.cast.module,
                  out);
}

// The first candidate and up to two neighbours of it. selector: 0 by boards, 1 by processors.
void FillModuleList(Scene& scene) {
  const bool isBoard = scene.kind.selector == 0;
  const std::uint32_t carrier = isBoard ? scene.cast.board : scene.cast.ProcessorNumber();
  const std::uint32_t count = scene.random.Between(1, 3);
  PutByte(scene, 0, count);
  TextWriter serials(scene, 9);
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint32_t module = 1 + (scene.cast.module - 1U + 2 * i) % 8;
    PutByte(scene, 1 + 2 * i, module);
    PutByte(scene, 2 + 2 * i, carrier);
    if (i > 0) serials.Add(", ");
    AddModuleSerial(scene, isBoard ? carrier : kFirstProcessorCarrier + carrier, module, serials);
  }
}

// selector: the action or state.
void FillCartridge(Scene& scene) {
  PutByte(scene, 0, std::max<std::uint32_t>(scene.cast.board, 1));
  PutByte(scene, 1, scene.kind.selector);
  PutByte(scene, 2, 1);
}

void FillCartridgeModule(Scene& scene) {
  FillCartridge(scene);
  PutByte(scene, 1, scene.cast.module);
}

void FillBoardModule(Scene& scene) {
  PutByte(scene, 0, scene.cast.board);
  PutByte(scene, 1, scene.cast.module);
}

void FillMemoryAdded(Scene& scene) {
  PutLe32(scene, 2, 4096U << scene.random.Below(5));
}

void FillBank(Scene& scene) {
  PutByte(scene, 0, scene.cast.board);
  PutByte(scene, 1, 'A' + (scene.cast.module - 1U) % 4U);
  TextWriter out(scene, 2);
  AddModuleSerial(scene, scene.cast.board, scene.cast.module, out);
}

void FillSocket(Scene& scene) {
  PutByte(scene, 0, scene.cast.processor);
}

// Board or tray alike, by the event's wording.
void FillProcessor(Scene& scene) {
  PutByte(scene, 0, scene.cast.processor);
  PutByte(scene, 1, scene.cast.isUpper ? 1 : 2);
  PutByte(scene, 3, scene.cast.ProcessorNumber());
}

void FillMachineCheck(Scene& scene) {
  FillProcessor(scene);
  Random& random = scene.random;
  PutLe32(scene, 4, 16U * (scene.cast.ProcessorNumber() - 1U) + random.Below(16));
  PutLe32(scene, 8, random.Below(22));
  PutLe32(scene, 12, random.StatusWord() & 0x0FFFFFFFU);
  PutLe32(scene, 16, 0xB2000000U | random.Below(0x400) << 8U);
  PutLe32(scene, 20, random.Word() & 0xFFFFFFC0U);
  PutLe32(scene, 24, random.Below(64));
  PutLe32(scene, 28, random.Below(0x100));
}

void FillStatusWord(Scene& scene) {
  PutLe32(scene, 0, scene.random.StatusWord());
}
void FillStatusWords(Scene& scene) {
  PutLe32(scene, 0, scene.random.StatusWord());
  PutLe32(scene, 4, scene.random.StatusWord() & 0xFFFFU);
}

void FillEisaSlot(Scene& scene) {
  PutByte(scene, 0, scene.cast.slot);
}

void FillPciBus(Scene& scene) {
  if (IsInExternalChassis(scene.cast)) PutByte(scene, 1, scene.cast.chassis);
  PutByte(scene, 3, scene.cast.slot);
  PutByte(scene, 4, scene.cast.bus);
  PutByte(scene, 5, scene.cast.device);
  PutByte(scene, 6, scene.cast.function);
}

// Devices on the lowest buses are part of the system board.
void FillPciExpress(Scene& scene) {
  PutByte(scene, 0, scene.cast.bus < 8 ? 0U : scene.cast.slot);
  PutByte(scene, 1, scene.cast.bus);
  PutByte(scene, 2, scene.cast.device);
  PutByte(scene, 3, scene.cast.function);
  const std::uint32_t error = 1U << scene.random.Between(4, 20);
  PutLe32(scene, 4, error | scene.random.Below(0x1000) << 20U);
}

void FillSlot(Scene& scene) {
  if (IsInExternalChassis(scene.cast)) PutByte(scene, 1, scene.cast.chassis);
  PutByte(scene, 3, scene.cast.slot);
}

void FillSupplyFailure(Scene& scene) {
  PutByte(scene, 3, scene.cast.supply);
  PutByte(scene, 4, scene.random.AnyOf(kSupplyFailures));
  PutText(scene, PutPlace(scene, 5));
}

void FillAcProblem(Scene& scene) {
  PutByte(scene, 3, scene.cast.supply);
  PutByte(scene, 4, scene.random.Between(1, 5));
  PutText(scene, PutPlace(scene, 5));
}

void FillOverload(Scene& scene) {
  PutByte(scene, 3, scene.cast.supply);
  PutByte(scene, 4, scene.random.AnyOf(kLineVoltages));
  PutPlace(scene, 5);
}

// selector: the offset of the chassis name.
void FillSupply(Scene& scene) {
  PutByte(scene, 3, scene.cast.supply);
  PutPlace(scene, scene.kind.selector);
}

// The enclosures say where redundancy was lost; their name begins one byte later for it.
void FillSuppliesNotRedundant(Scene& scene) {
  const bool isEnclosure =
      scene.cast.place == Place::kBladeEnclosure || scene.cast.place == Place::kPowerEnclosure;
  if (isEnclosure) PutByte(scene, 3, scene.random.Below(5));
  PutPlace(scene, isEnclosure ? 4 : 3);
}

void FillPowerModule(Scene& scene) {
  PutByte(scene, 0, 1);
  PutByte(scene, 4, scene.cast.processor);
  PutByte(scene, 5, scene.random.Between(1, 3));
}

void FillStorageSupply(Scene& scene) {
  PutStorageBox(scene, 4, 6, 7);
  PutByte(scene, 3, 1U + scene.cast.supply % 2U);
}

// No decoder reads these: some plausible readings.
void FillReadings(Scene& scene) {
  for (std::size_t i = 0; i < 6; ++i) PutByte(scene, i, scene.random.Below(240));
}

void FillException(Scene& scene) {
  PutByte(scene, 0, scene.random.Between(6, 18));
  PutText(scene, 1);
}

// selector: 13 a network component, 14 a blade.
void FillPowerManagement(Scene& scene) {
  PutByte(scene, 3, scene.cast.blade);
  PutByte(scene, 4, scene.kind.selector);
}

void FillNetwork(Scene& scene) {
  PutByte(scene, 2, scene.cast.port);
  PutByte(scene, 3, scene.cast.slot);
  PutAdapterChassis(scene, 4);
}

void FillController(Scene& scene) {
  PutByte(scene, 2, 1U + scene.cast.port % 2U);
  PutByte(scene, 3, scene.cast.slot);
  PutAdapterChassis(scene, 4);
}

void FillControllersNotRedundant(Scene& scene) {
  PutAdapterChassis(scene, 3);
}

void FillDrive(Scene& scene) {
  PutByte(scene, 1, scene.cast.slot);
  PutByte(scene, 2, 1U + scene.cast.port % 2U);
  PutByte(scene, 3, scene.cast.bay);
  PutName(scene, 4, StorageName(scene.cast));
}

void FillEnclosureDrive(Scene& scene) {
  PutStorageBox(scene, 4, 6, 7);
  PutByte(scene, 3, scene.cast.bay);
}

void FillEnclosurePhy(Scene& scene) {
  PutStorageBox(scene, 3, 5, 8);
  PutByte(scene, 6, scene.random.Between(1, 2));
  PutByte(scene, 7, scene.random.Below(36));
}

void FillEnclosureLink(Scene& scene) {
  PutStorageBox(scene, 3, 5, 7);
  PutByte(scene, 6, scene.random.Between(1, 9));
}

void FillEnclosureProcessor(Scene& scene) {
  PutStorageBox(scene, 3, 5, 6);
}

void FillBayControllers(Scene& scene) {
  PutByte(scene, 1, scene.cast.slot);
  PutStorageNames(scene, 3);
}

void FillRomFlash(Scene& scene) {
  ++scene.machine.romVersion;
  PutText(scene, 0);
}

void FillModuleReplaced(Scene& scene) {
  ++scene.machine.replacements[scene.cast.board][scene.cast.module];
  PutText(scene, 0);
}

// ---- Infrastructure: the enclosure, then one or two bytes. The offsets of the enclosure's serial
// number differ by event.

// selector: the offset of the serial number.
void FillEnclosure(Scene& scene) {
  PutEnclosure(scene, EnclosureType(scene.cast), scene.kind.selector);
}

// selector: what stands behind the blade's slot.
void FillEnclosureBlade(Scene& scene) {
  PutEnclosure(scene, 4, 5);
  PutByte(scene, 3, scene.cast.blade);
  PutByte(scene, 4, scene.kind.selector);
}

void FillBladePowerOn(Scene& scene) {
  PutEnclosure(scene, 4, 4);
  PutByte(scene, 3, scene.cast.blade);
}

void FillPowerOnDenied(Scene& scene) {
  FillEnclosureBlade(scene);
  PutByte(scene, 4, scene.random.Below(4));
}

void FillRequestDenied(Scene& scene) {
  FillEnclosureBlade(scene);
  PutByte(scene, 4, scene.random.Between(1, 2));
}

void FillFuse(Scene& scene) {
  FillEnclosureBlade(scene);
  const std::uint32_t place =
      scene.kind.selector == 14 ? scene.cast.blade : 1U + scene.cast.blade % 2U;
  PutByte(scene, 3, place | (scene.random.Percent(50) ? 0x10U : 0U));
}

void FillSideComponent(Scene& scene) {
  FillEnclosureBlade(scene);
  PutByte(scene, 3, 1U + scene.cast.blade % 2U);
}

// selector: the offset of the serial number.
void FillEnclosureBus(Scene& scene) {
  FillEnclosure(scene);
  PutByte(scene, 3, scene.random.Between(1, 2));
}

void FillOutOfTolerance(Scene& scene) {
  PutEnclosure(scene, 5, 6);
  PutByte(scene, 3, scene.random.Below(2));
  PutLe16(scene, 4,
          scene.random.Percent(50) ? scene.random.Between(46000, 47400)
                                   : scene.random.Between(50600, 52000));
}

// selector: the setting.
void FillRackSetting(Scene& scene) {
  PutEnclosure(scene, EnclosureType(scene.cast), 4);
  PutByte(scene, 3, scene.kind.selector);
}

void FillMisconfigured(Scene& scene) {
  PutEnclosure(scene, 5, 7);
  PutByte(scene, 3, scene.random.Between(1, 4));
  PutByte(scene, 4, scene.random.Below(3));
}

// selector: how many numbers there are, from 1.
void FillSideNumber(Scene& scene) {
  PutEnclosure(scene, 4, 5);
  PutByte(scene, 3, scene.random.Between(1, scene.kind.selector));
  PutByte(scene, 4, 1U + scene.cast.blade % 2U);
}

void FillInfrastructureFault(Scene& scene) {
  PutByte(scene, 0, 4);
  PutByte(scene, 3, scene.random.Below(18));
  PutByte(scene, 4, scene.random.Below(17));
  PutByte(scene, 5, scene.random.Below(9));
}

void FillFirmwareTooOld(Scene& scene) {
  PutEnclosure(scene, 4, 9);
  PutByte(scene, 3, 1);
  PutByte(scene, 4, scene.random.Below(0x30));
  PutByte(scene, 5, 2);
  PutByte(scene, 6, scene.random.Below(0x50));
}

}  // namespace qvl::sample
