#ifndef QVL_TOOLS_SAMPLE_EVENT_FILLS_H_
#define QVL_TOOLS_SAMPLE_EVENT_FILLS_H_

#include "tools/sample/scenarios.h"

// What fills the data of each event kind, by layout. What a kind's selector means is told at each.

namespace qvl::sample {

void FillNothing(Scene& scene);
void FillText(Scene& scene);
void FillSelector(Scene& scene);
void FillFan(Scene& scene);
void FillFansNotRedundant(Scene& scene);
void FillSharedLocation(Scene& scene);
void FillHeat(Scene& scene);
void FillStorageCooling(Scene& scene);
void FillStorageFanModule(Scene& scene);
void FillModule(Scene& scene);
void FillProcessorModule(Scene& scene);
void FillModuleList(Scene& scene);
void FillCartridge(Scene& scene);
void FillCartridgeModule(Scene& scene);
void FillBoardModule(Scene& scene);
void FillMemoryAdded(Scene& scene);
void FillBank(Scene& scene);
void FillSocket(Scene& scene);
void FillProcessor(Scene& scene);
void FillMachineCheck(Scene& scene);
void FillStatusWord(Scene& scene);
void FillStatusWords(Scene& scene);
void FillEisaSlot(Scene& scene);
void FillPciBus(Scene& scene);
void FillPciExpress(Scene& scene);
void FillSlot(Scene& scene);
void FillSupplyFailure(Scene& scene);
void FillAcProblem(Scene& scene);
void FillOverload(Scene& scene);
void FillSupply(Scene& scene);
void FillSuppliesNotRedundant(Scene& scene);
void FillPowerModule(Scene& scene);
void FillStorageSupply(Scene& scene);
void FillReadings(Scene& scene);
void FillException(Scene& scene);
void FillPowerManagement(Scene& scene);
void FillNetwork(Scene& scene);
void FillController(Scene& scene);
void FillControllersNotRedundant(Scene& scene);
void FillDrive(Scene& scene);
void FillEnclosureDrive(Scene& scene);
void FillEnclosurePhy(Scene& scene);
void FillEnclosureLink(Scene& scene);
void FillEnclosureProcessor(Scene& scene);
void FillBayControllers(Scene& scene);
void FillRomFlash(Scene& scene);
void FillModuleReplaced(Scene& scene);
void FillEnclosure(Scene& scene);
void FillEnclosureBlade(Scene& scene);
void FillBladePowerOn(Scene& scene);
void FillPowerOnDenied(Scene& scene);
void FillRequestDenied(Scene& scene);
void FillFuse(Scene& scene);
void FillSideComponent(Scene& scene);
void FillEnclosureBus(Scene& scene);
void FillOutOfTolerance(Scene& scene);
void FillRackSetting(Scene& scene);
void FillMisconfigured(Scene& scene);
void FillSideNumber(Scene& scene);
void FillInfrastructureFault(Scene& scene);
void FillFirmwareTooOld(Scene& scene);

}  // namespace qvl::sample

#endif  // QVL_TOOLS_SAMPLE_EVENT_FILLS_H_
