#include "tools/sample/scenarios.h"

#include <iterator>

#include "entries/severity.h"
#include "tools/sample/event_fills.h"
#include "tools/sample/node_controller_fills.h"

namespace qvl::sample {
namespace {

using TextRow = std::string_view;

// ---- Texts. A percent sign and a letter stand for a part of the story or a number by chance:
// b the board or system memory, m module, q its serial number, p processor, s slot, o port, f fan,
// w power supply, c cabinet, x box, y bay, l blade, t ticket, d degrees, n a small number, N a
// larger one, r revolutions per minute, h and H 16 and 32 bits in hexadecimal, v the system ROM's
// version, V its next one.

constexpr TextRow kFanDegradedTexts[] = {"speed %N rpm below the expected speed",
                                         "bearing noise, %r rpm", "degraded, %r rpm",
                                         "does not reach its speed", "vibration above the limit"};
constexpr TextRow kOverheatTexts[] = {"fans at full speed", "%n minutes above the caution level",
                                      "caution level", "inlet air too warm"};
constexpr TextRow kCriticalHeatTexts[] = {"shutdown follows", "critical level", "sensor %n", ""};
constexpr TextRow kPanelTexts[] = {"cooling is impaired", "seen at power-on", ""};

constexpr TextRow kPostTexts[] = {
    "Keyboard not found",
    "Date and time not set",
    "Memory module %m of %b failed its self test",
    "Memory size changed, %n modules found",
    "Adapter in slot %s: option ROM not loaded",
    "Adapter in slot %s does not answer, status 0x%h",
    "Configuration memory invalid, checksum 0x%h, default settings loaded",
    "Processor %p held in reset after a failed self test",
    "Boot drive not found on port %o",
    "Fan %f not found at power-on",
    "Previous restart was not expected, reason 0x%h",
    "  Power-on password  disabled by maintenance switch ",
    "Drive cache of slot %s holds data of a lost power, %N blocks written back"};
constexpr TextRow kRestartPostTexts[] = {"Scheduled restart, %n devices initialised",
                                         "Configuration changed since the last restart, 0x%h",
                                         "Boot order changed by operator",
                                         "Self test shortened by fast start setting"};
constexpr TextRow kHeatPostTexts[] = {"Previous shutdown was caused by temperature",
                                      "Power-on delayed until the inlet air has cooled down"};
constexpr TextRow kCrashPostTexts[] = {"Previous restart was not expected, reason 0x%h",
                                       "Fault record 0x%H saved by the last restart"};
constexpr TextRow kFlashPostTexts[] = {
    "System ROM changed, configuration carried over",
    "System ROM changed, default settings loaded for %n options"};
constexpr TextRow kDrivePostTexts[] = {"Drive in bay %y replaced, rebuild started",
                                       "Drive in box %x, bay %y not ready"};

constexpr TextRow kRomTexts[] = {"System ROM %v"};
constexpr TextRow kFirmwareTexts[] = {
    "System ROM backup copy %v",         "Storage controller in slot %s, 6.%n build %N",
    "Management processor 3.%n",         "Network adapter in slot %s, boot code 7.%n",
    "Power controller, 1.%n build %N",   "Node controller board, gate array 0x%h",
    "Backplane expander of box %x, 2.%n"};

constexpr TextRow kFirstClearedTexts[] = {"operator"};

constexpr TextRow kNotes[] = {
    "Monthly inspection, all lights green.",
    "Monthly inspection, fault light of cabinet %c was lit, ticket %t.",
    "Air filters of cabinet %c cleaned.",
    "Backup %t checked, no errors.",
    "Backup %t repeated, first run had stopped after %n minutes.",
    "Cabling of cabinet %c checked and labelled.",
    "Restore test of backup %t successful, took %n minutes.",
    "Ticket %t closed, could not be reproduced.",
    "Ticket %t: users report slow file access, nothing found in the log.",
    "Ticket %t: wrong time on the console, clock set %n minutes forward.",
    "Inventory: %n memory modules of serial numbers near %q in store.",
    "Inventory: spares for fan %f and power supply %w are in store.",
    "Moved the network cable of slot %s, port %o to the new switch.",
    "Network cable of slot %s, port %o labelled, no change otherwise.",
    "Room is at %d degrees at the back of cabinet %c, cooling unit checked.",
    "Emergency power test of the building, no interruption seen.",
    "Spare fan and spare power supply ordered, ticket %t.",
    "Watching fan %f, it is louder than the others, ticket %t.",
    "Power consumption of cabinet %c read: %N W.",
    "Bay %y of box %x kept free for the new drive, ticket %t.",
    "Corrected errors on module %m of %b discussed, no action yet, ticket %t.",
    "Rack door of cabinet %c did not close, hinge adjusted.",
    "Firmware list compared with the release notes, %n updates are due, ticket %t.",
    "Blade %l reserved for the test group until ticket %t is done.",
    "Service contract extended, contact list in the cabinet renewed.",
    "Handed over to the night shift, ticket %t still open."};
constexpr TextRow kRestartNotes[] = {"Scheduled restart for updates, ticket %t.",
                                     "Monthly restart, users told by mail, ticket %t.",
                                     "Restart after the quarterly maintenance, ticket %t."};
constexpr TextRow kFlashNotes[] = {"Updating the system ROM to %V at the next restart, ticket %t.",
                                   "System ROM update approved for tonight, ticket %t."};
constexpr TextRow kFanNotes[] = {"Replaced fan %f, ticket %t.",
                                 "Fan %f exchanged while running, noise is gone, ticket %t."};
constexpr TextRow kSupplyNotes[] = {"Replaced power supply %w, ticket %t.",
                                    "Power supply %w exchanged, old one sent in, ticket %t."};
constexpr TextRow kMainsNotes[] = {"Building power failed for %n minutes, ticket %t.",
                                   "Circuit breaker of cabinet %c had tripped, reset it.",
                                   "Electrician worked on the feed of cabinet %c, ticket %t."};
constexpr TextRow kBayNotes[] = {"Replaced the drive in bay %y; rebuild runs, ticket %t.",
                                 "Drive in bay %y replaced, rebuild took %n hours."};
constexpr TextRow kTestNotes[] = {"Tests run after the inspection, no findings, ticket %t."};
constexpr TextRow kDriveNotes[] = {"Replaced the drive in box %x, bay %y; rebuild runs, ticket %t.",
                                   "Drive in box %x, bay %y replaced, rebuild took %n hours."};
constexpr TextRow kAdapterNotes[] = {"Replaced the adapter in slot %s, ticket %t.",
                                     "Reseated the adapter in slot %s, no errors since."};
constexpr TextRow kNetworkNotes[] = {
    "Replaced the cable of slot %s, port %o, ticket %t.",
    "Switch was restarted by the network group, ticket %t.",
    "Port %o of slot %s set to automatic speed again, link is stable."};
constexpr TextRow kHeatNotes[] = {"Cooling unit of the room had stopped, repaired, ticket %t.",
                                  "Blanking panels of cabinet %c were missing, mounted them."};
constexpr TextRow kProcessorNotes[] = {"Processor %p replaced, ticket %t.",
                                       "Processor %p reseated and tested for %n hours, ticket %t."};
constexpr TextRow kCrashNotes[] = {"Server was down for %n minutes, fault data sent in, ticket %t.",
                                   "Restarted by itself, cause under investigation, ticket %t."};
constexpr TextRow kBatteryNotes[] = {"Battery replaced during the restart, ticket %t.",
                                     "Battery replaced, clock set again, ticket %t."};
constexpr TextRow kCacheBatteryNotes[] = {"Controller battery of slot %s replaced, ticket %t.",
                                          "New battery in slot %s, charged after %n hours."};
constexpr TextRow kBladeNotes[] = {"Blade %l moved here from the test rack, ticket %t.",
                                   "Blade %l exchanged, ticket %t."};
constexpr TextRow kModuleNotes[] = {
    "Replaced memory module %m of %b, new serial number %q, ticket %t."};

constexpr TextRow kLockupTexts[] = {"no timer reset for %n minutes",
                                    "no timer reset for %n minutes, program counter 0x%H",
                                    "interrupt %n not served", "processor %p does not answer"};
constexpr TextRow kOsTexts[] = {"stop code 0x%H", "storage driver, stop code 0x%H",
                                "out of memory in the kernel", "network driver fault at 0x%H",
                                "file system not writable"};
constexpr TextRow kExceptionTexts[] = {"page fault at 0x%H", "protection fault", "invalid opcode",
                                       "stack fault", "machine check on processor %p"};

constexpr TextRow kLinkTexts[] = {"cable fault", "switch port disabled", "after %n retries",
                                  "no carrier for %n minutes", ""};
constexpr TextRow kRedundancyTexts[] = {"%n percent of the team left", "standby adapter in use",
                                        ""};
constexpr TextRow kAcTexts[] = {"%N ms without input", "input %n percent below nominal",
                                "feed of cabinet %c", ""};
constexpr TextRow kSupplyTexts[] = {"status 0x%h", "firmware 1.%n", "output switched off", ""};
constexpr TextRow kClockTexts[] = {"2.%n V", "clock lost %n minutes", ""};
// ---- The kinds of events that the stories are told in.

using K = EventKind;
constexpr auto kMinor = kInformationalMinor;
constexpr auto kInfo = kInformational;

constexpr K kLogCleared{33, 1, kInfo, 0, kOnce, FillText, 0, kFirstClearedTexts};
constexpr K kRestartNote{33, 2, kMinor, 0, kOnce, FillText, 0, kRestartNotes};
constexpr K kFlashNote{33, 2, kMinor, 0, kOnce, FillText, 0, kFlashNotes};
constexpr K kFanNote{33, 2, kMinor, 0, kOnce, FillText, 0, kFanNotes};
constexpr K kSupplyNote{33, 2, kMinor, 0, kOnce, FillText, 0, kSupplyNotes};
constexpr K kMainsNote{33, 2, kMinor, 0, kOnce, FillText, 0, kMainsNotes};
constexpr K kDriveNote{33, 2, kMinor, 0, kOnce, FillText, 0, kDriveNotes};
constexpr K kBayNote{33, 2, kMinor, 0, kOnce, FillText, 0, kBayNotes};
constexpr K kAdapterNote{33, 2, kMinor, 0, kOnce, FillText, 0, kAdapterNotes};
constexpr K kNetworkNote{33, 2, kMinor, 0, kOnce, FillText, 0, kNetworkNotes};
constexpr K kHeatNote{33, 2, kMinor, 0, kOnce, FillText, 0, kHeatNotes};
constexpr K kProcessorNote{33, 2, kMinor, 0, kOnce, FillText, 0, kProcessorNotes};
constexpr K kCrashNote{33, 2, kMinor, 0, kOnce, FillText, 0, kCrashNotes};
constexpr K kBatteryNote{33, 2, kMinor, 0, kOnce, FillText, 0, kBatteryNotes};
constexpr K kCacheBatteryNote{33, 2, kMinor, 0, kOnce, FillText, 0, kCacheBatteryNotes};
constexpr K kBladeNote{33, 2, kMinor, 0, kOnce, FillText, 0, kBladeNotes};
constexpr K kModuleNote{33, 2, kMinor, 0, kOnce, FillModuleReplaced, 0, kModuleNotes};
constexpr K kTestNote{33, 2, kMinor, 0, kOnce, FillText, 0, kTestNotes};

constexpr K kRomFlashed{32, 1, kInfo, 0, kOnce, FillRomFlash, 0, kRomTexts};
constexpr K kPlannedShutdown{14, 2, kInfo, 0, kOnce, FillSelector, 133};
constexpr K kHeatShutdown{14, 2, kCritical, 15, kOnce, FillSelector, 2};
constexpr K kRecoveryShutdown{14, 2, kCaution, 30, kOnce, FillSelector, 134};
constexpr K kOsFailure{14, 1, kCritical, 25, kOnce, FillText, 0, kOsTexts};
constexpr K kRestartPost{10, 1, kInfo, 0, kOnce, FillText, 1, kRestartPostTexts};
constexpr K kFlashPost{10, 1, kInfo, 0, kOnce, FillText, 1, kFlashPostTexts};
constexpr K kHeatPost{10, 1, kCaution, 20, kOnce, FillText, 1, kHeatPostTexts};
constexpr K kCrashPost{10, 1, kCaution, 20, kOnce, FillText, 1, kCrashPostTexts};
constexpr K kDrivePost{10, 1, kCaution, 30, kOnce, FillText, 1, kDrivePostTexts};
constexpr K kLockup{13, 2, kCritical, 20, kOnce, FillText, 0, kLockupTexts};
constexpr K kRecovered{13, 1, kCaution, 25, kOnce, FillNothing};
constexpr K kSystemError{20, 3, kCritical, 20, kOnce, FillStatusWords};

constexpr K kFanDegraded{2, 8, kCaution, 35, kOftenAgain, FillFan, 0, kFanDegradedTexts};
constexpr K kFanFailed{2, 2, kCritical, 45, kOnce, FillFan};
constexpr K kFanRemoved{2, 4, kInfo, 0, kOnce, FillFan};
constexpr K kFanInserted{2, 5, kInfo, 0, kOnce, FillFan};
constexpr K kFansNotRedundant{2, 6, kCaution, 35, kOnce, FillFansNotRedundant};
constexpr K kWarm{2, 10, kCaution, 25, kOftenAgain, FillHeat, 38, kOverheatTexts};
constexpr K kTooHot{2, 14, kCritical, 20, kOnce, FillHeat, 58, kCriticalHeatTexts};

constexpr K kCorrected{3, 1, kCaution, 25, kPilesUp, FillModule};
constexpr K kCorrectedList{3, 19, kCaution, 25, kPilesUp, FillModuleList};
constexpr K kUncorrectable{3, 2, kCritical, 30, kOnce, FillModule};
constexpr K kSpareCopy{3, 8, kCaution, 40, kOnce, FillBoardModule};
constexpr K kSpareSwitched{3, 16, kInfo, 0, kOnce, FillNothing};
constexpr K kCartridgeUnlocked{3, 4, kMinor, 0, kOnce, FillCartridge, 2};
constexpr K kCartridgeRemoved{3, 4, kInfo, 0, kOnce, FillCartridge, 0};
constexpr K kCartridgeInserted{3, 4, kInfo, 0, kOnce, FillCartridge, 1};
constexpr K kCartridgeLocked{3, 4, kMinor, 0, kOnce, FillCartridge, 3};

constexpr K kProcessorCorrected{5, 4, kCaution, 25, kPilesUp, FillProcessor};
constexpr K kProcessorFailed{5, 5, kCritical, 25, kOnce, FillProcessor};
constexpr K kMachineCheck{5, 6, kCritical, 15, kOnce, FillMachineCheck};
constexpr K kPciExpressError{8, 2, kCritical, 20, kSeldomAgain, FillPciExpress};
constexpr K kLeverOpened{9, 1, kMinor, 0, kOnce, FillSlot};
constexpr K kLeverClosed{9, 2, kMinor, 0, kOnce, FillSlot};
constexpr K kSlotPowerOn{9, 3, kInfo, 0, kOnce, FillSlot};
constexpr K kSlotPowerOff{9, 4, kInfo, 0, kOnce, FillSlot};
constexpr K kAdapterFailed{9, 9, kCaution, 40, kOnce, FillSlot};

constexpr K kSupplyFailed{11, 19, kCaution, 45, kOnce, FillSupplyFailure, 0, kSupplyTexts};
constexpr K kSupplyRemoved{11, 4, kInfo, 0, kOnce, FillSupply, 4};
constexpr K kSupplyInserted{11, 5, kInfo, 0, kOnce, FillSupply, 4};
constexpr K kSuppliesNotRedundant{11, 6, kCaution, 40, kOnce, FillSuppliesNotRedundant};
constexpr K kAcProblem{11, 17, kCaution, 45, kSeldomAgain, FillAcProblem, 0, kAcTexts};
constexpr K kSupplyUp{11, 10, kInfo, 0, kOnce, FillSupply, 4};
constexpr K kClockBattery{11, 18, kCaution, 50, kSeldomAgain, FillText, 3, kClockTexts};

constexpr K kLinkDown{17, 6, kCaution, 35, kOftenAgain, FillNetwork, 0, kLinkTexts};
constexpr K kNetworkReduced{17, 7, kCaution, 35, kSeldomAgain, FillNetwork, 0, kRedundancyTexts};
constexpr K kNetworkNotRedundant{17, 4, kCaution, 35, kOnce, FillNetwork};
constexpr K kScsiDrive{18, 2, kCaution, 40, kOnce, FillDrive};
constexpr K kScsiController{18, 1, kCritical, 40, kOnce, FillController};
constexpr K kScsiNotRedundant{18, 3, kCaution, 40, kOnce, FillControllersNotRedundant};
constexpr K kDriveFailed{19, 7, kCritical, 45, kOnce, FillEnclosureDrive};
constexpr K kPhyError{19, 8, kCaution, 30, kOftenAgain, FillEnclosurePhy};
constexpr K kPathError{19, 10, kCaution, 30, kOftenAgain, FillEnclosureLink};
constexpr K kArrayDrive{19, 2, kCritical, 45, kOnce, FillDrive};
constexpr K kCacheBattery{19, 3, kCaution, 45, kOnce, FillController};

constexpr K kBladeRemoved{34, 20, kInfo, 0, kOnce, FillEnclosureBlade, 14};
constexpr K kBladeInserted{34, 19, kInfo, 0, kOnce, FillEnclosureBlade, 14};
constexpr K kBladePowerOn{34, 2, kMinor, 0, kOnce, FillBladePowerOn};
constexpr K kPowerDenied{34, 1, kCaution, 30, kSeldomAgain, FillPowerOnDenied};
constexpr K kRequestDenied{34, 26, kCaution, 30, kSeldomAgain, FillRequestDenied};
constexpr K kFeedMissing{34, 18, kCaution, 35, kOnce, FillEnclosureBus, 4};
constexpr K kNotBalanced{34, 6, kCaution, 35, kSeldomAgain, FillEnclosureBus, 6};
constexpr K kStatusChange{34, 14, kMinor, 0, kOnce, FillEnclosure, 3};

constexpr K kFabricCorrected{37, 197, kMinor, 0, kPilesUp, FillChipError, 1};
constexpr K kChipLinkReduced{37, 8, kCaution, 30, kOnce, FillChipLink, 2};
constexpr K kProcessorLinkFailed{37, 7, kCritical, 25, kOnce, FillProcessorLink, 3};
constexpr K kFewerSockets{37, 53, kCaution, 25, kOnce, FillNode, 7};
constexpr K kNodeReset{37, 129, kInfo, 0, kOnce, FillNodeStatus};
constexpr K kEventsDropped{37, 81, kCaution, 20, kSeldomAgain, FillNode};

constexpr K kInternalTest{1, 1, kMinor, 0, kOnce, FillNothing};
constexpr K kEmpty{0, 0, kMinor, 0, kOnce, FillNothing};
constexpr K kCacheParity{4, 1, kCaution, 25, kSeldomAgain, FillSocket};
constexpr K kHostBusParity{6, 1, kCritical, 25, kOnce, FillSelector, 1};
constexpr K kChipsetError{6, 4, kCritical, 20, kOnce, FillStatusWords};
constexpr K kEisaTimeout{7, 1, kCaution, 25, kSeldomAgain, FillEisaSlot};
constexpr K kUpsOnBattery{12, 2, kCaution, 30, kOnce, FillReadings};
constexpr K kDiagnostics{15, 4, kInfo, 0, kOnce, FillReadings};

// ---- Single events, by weight. Most of a machine's days are quiet.

struct EventRow {
  std::uint16_t weight;
  EventKind kind;
};

// clang-format would indent the headings within the table to the left margin.
// clang-format off
constexpr EventRow kEvents[] = {
    {1, kEmpty},
    {2, kInternalTest},
    // Machine environment.
    {14, kFanDegraded},
    {3, kFanFailed},
    {9, kFanRemoved},
    {10, kFanInserted},
    {5, kFansNotRedundant},
    {2, {2, 7, kCaution, 30, kOnce, FillSharedLocation}},
    {2, {2, 3, kCaution, 50, kOnce, FillFan}},
    {3, {2, 9, kCaution, 50, kOnce, FillFan, 0, kPanelTexts}},
    {5, {2, 1, kCaution, 25, kSeldomAgain, FillHeat, 40}},
    {14, kWarm},
    {2, kTooHot},
    {4, {2, 11, kCaution, 40, kOnce, FillStorageCooling, 0}},
    {4, {2, 12, kCaution, 30, kSeldomAgain, FillStorageCooling, 1}},
    {4, {2, 13, kCaution, 40, kOnce, FillStorageFanModule}},
    // Main memory.
    {26, kCorrected},
    {8, kCorrectedList},
    {3, kUncorrectable},
    {1, {3, 3, kCritical, 30, kOnce, FillModuleList}},
    {2, {3, 5, kCaution, 30, kOnce, FillCartridge, 0}},
    {2, {3, 5, kCaution, 30, kOnce, FillCartridge, 1}},
    {3, {3, 5, kCaution, 40, kOnce, FillCartridge, 2}},
    {5, {3, 5, kInfo, 0, kOnce, FillCartridge, 3}},
    {2, {3, 6, kCaution, 40, kOnce, FillCartridgeModule}},
    {5, {3, 7, kInfo, 0, kOnce, FillMemoryAdded}},
    {2, {3, 9, kCaution, 40, kOnce, FillBoardModule}},
    {4, {3, 10, kCaution, 25, kPilesUp, FillBank}},
    {1, {3, 11, kCaution, 40, kOnce, FillBank}},
    {1, {3, 12, kCaution, 40, kOnce, FillBank}},
    {2, {3, 13, kCaution, 40, kOnce, FillNothing}},
    {1, {3, 14, kInfo, 0, kOnce, FillNothing}},
    {1, {3, 15, kCaution, 20, kOnce, FillNothing}},
    {2, kSpareSwitched},
    {1, {3, 17, kCritical, 40, kOnce, FillBoardModule}},
    {1, {3, 18, kCritical, 30, kOnce, FillModule}},
    {14, {3, 20, kCaution, 25, kPilesUp, FillModuleList, 1}},
    {2, {3, 21, kCaution, 40, kOnce, FillProcessorModule}},
    {1, {3, 22, kCaution, 40, kOnce, FillProcessorModule}},
    {1, {3, 23, kCritical, 30, kOnce, FillModuleList, 1}},
    {1, {3, 24, kCaution, 30, kOnce, FillModuleList}},
    {1, {3, 25, kCaution, 30, kOnce, FillModuleList, 1}},
    {1, {3, 33, kCaution, 40, kOnce, FillBoardModule}},
    {1, {3, 34, kCaution, 40, kOnce, FillBoardModule}},
    {2, {3, 35, kCaution, 25, kOnce, FillBoardModule}},
    {1, {3, 36, kCaution, 40, kOnce, FillBoardModule}},
    {1, {3, 38, kCaution, 50, kOnce, FillBoardModule}},
    {1, {3, 39, kCaution, 30, kOnce, FillBoardModule}},
    {2, {3, 43, kCaution, 25, kSeldomAgain, FillBoardModule}},
    {1, {3, 46, kCaution, 25, kOnce, FillBoardModule}},
    {1, {3, 49, kCaution, 25, kSeldomAgain, FillBoardModule}},
    // Caches, processors, buses and slots.
    {2, kCacheParity},
    {6, {5, 1, kCaution, 25, kPilesUp, FillProcessor}},
    {1, {5, 2, kCritical, 25, kOnce, FillProcessor}},
    {2, {5, 3, kCritical, 20, kOnce, FillMachineCheck}},
    {6, kProcessorCorrected},
    {1, kProcessorFailed},
    {2, kMachineCheck},
    {1, {6, 1, kCritical, 25, kOnce, FillSelector, 0}},
    {1, {6, 2, kCritical, 25, kOnce, FillStatusWord}},
    {2, {6, 3, kCritical, 20, kOnce, FillStatusWords}},
    {1, kChipsetError},
    {1, kEisaTimeout},
    {1, {7, 3, kCaution, 30, kOnce, FillEisaSlot}},
    {7, {8, 1, kCaution, 25, kSeldomAgain, FillPciBus}},
    {4, kPciExpressError},
    {9, kLeverOpened},
    {9, kLeverClosed},
    {12, kSlotPowerOn},
    {11, kSlotPowerOff},
    {3, {9, 5, kCaution, 40, kOnce, FillSlot}},
    {2, {9, 6, kCaution, 40, kOnce, FillSlot}},
    {2, {9, 7, kCaution, 40, kOnce, FillSlot}},
    {3, {9, 8, kCaution, 40, kOnce, FillSlot}},
    {34, {10, 1, kCaution, 20, kSeldomAgain, FillText, 1, kPostTexts}},
    // Power.
    {4, {11, 1, kCaution, 45, kOnce, FillSupplyFailure}},
    {2, {11, 2, kCaution, 50, kOnce, FillNothing}},
    {2, {11, 3, kCritical, 40, kOnce, FillPowerModule}},
    {9, kSupplyRemoved},
    {10, kSupplyInserted},
    {4, kSuppliesNotRedundant},
    {1, {11, 7, kCaution, 40, kOnce, FillSupply, 6}},
    {6, {11, 8, kCaution, 35, kSeldomAgain, FillAcProblem}},
    {12, kAcProblem},
    {2, {11, 9, kCaution, 35, kOnce, FillOverload}},
    {12, kSupplyUp},
    {8, {11, 11, kInfo, 0, kOnce, FillSupply, 4}},
    {1, {11, 12, kCritical, 40, kOnce, FillSupply, 5}},
    {2, {11, 13, kInfo, 0, kOnce, FillSupply, 4}},
    {2, {11, 14, kInfo, 0, kOnce, FillSupply, 4}},
    {1, {11, 15, kCaution, 40, kOnce, FillSupply, 3}},
    {1, {11, 16, kCaution, 35, kOnce, FillSupply, 5}},
    {3, kClockBattery},
    {4, {11, 20, kCaution, 45, kOnce, FillStorageSupply}},
    {1, {11, 21, kCaution, 50, kOnce, FillNothing}},
    {3, kUpsOnBattery},
    // Recovery and the operating system.
    {2, {13, 2, kCaution, 25, kOnce, FillText, 0, kLockupTexts}},
    {1, {13, 3, kCritical, 25, kOnce, FillNothing}},
    {4, kOsFailure},
    {16, kPlannedShutdown},
    {1, {14, 2, kCaution, 25, kOnce, FillSelector, 1}},
    {1, {14, 2, kCaution, 25, kOnce, FillSelector, 4}},
    {1, {14, 2, kInfo, 0, kOnce, FillSelector, 129}},
    {1, {14, 2, kInfo, 0, kOnce, FillSelector, 131}},
    {3, {14, 3, kCritical, 25, kOnce, FillException, 0, kExceptionTexts}},
    {1, {14, 4, kInfo, 0, kOnce, FillNothing}},
    {6, {14, 5, kInfo, 0, kOnce, FillPowerManagement, 14}},
    {2, {14, 5, kInfo, 0, kOnce, FillPowerManagement, 13}},
    {1, {14, 6, kInfo, 0, kOnce, FillNothing}},
    {3, kDiagnostics},
    {1, {20, 1, kCritical, 20, kOnce, FillNothing}},
    {1, {20, 2, kCritical, 20, kOnce, FillNothing}},
    {1, {20, 4, kCritical, 20, kOnce, FillStatusWords}},
    // Network and storage.
    {2, {17, 1, kCaution, 40, kOnce, FillNetwork}},
    {16, {17, 2, kCaution, 30, kOftenAgain, FillNetwork}},
    {18, kLinkDown},
    {4, {17, 3, kCaution, 30, kOftenAgain, FillNetwork}},
    {5, {17, 5, kCaution, 30, kSeldomAgain, FillNetwork}},
    {6, kNetworkReduced},
    {4, kScsiDrive},
    {1, kScsiController},
    {1, {19, 1, kCritical, 40, kOnce, FillController}},
    {5, kArrayDrive},
    {3, kCacheBattery},
    {1, {19, 4, kCaution, 40, kOnce, FillControllersNotRedundant}},
    {5, kDriveFailed},
    {14, kPhyError},
    {2, {19, 9, kCaution, 40, kOnce, FillBayControllers}},
    {8, kPathError},
    {2, {19, 11, kCritical, 40, kOnce, FillEnclosureProcessor}},
    // Maintenance.
    {30, {32, 1, kInfo, 0, kOnce, FillText, 0, kFirmwareTexts}},
    {60, {33, 2, kMinor, 0, kOnce, FillText, 0, kNotes}},
    // Blades and racks.
    {3, kPowerDenied},
    {18, kBladePowerOn},
    {1, {34, 3, kCaution, 40, kOnce, FillFuse, 14}},
    {1, {34, 3, kCaution, 40, kOnce, FillFuse, 13}},
    {2, {34, 4, kCaution, 25, kSeldomAgain, FillEnclosureBus, 4}},
    {8, {34, 5, kInfo, 0, kOnce, FillEnclosureBlade, 1}},
    {8, {34, 5, kInfo, 0, kOnce, FillEnclosureBlade, 0}},
    {3, kNotBalanced},
    {5, {34, 7, kCaution, 25, kSeldomAgain, FillOutOfTolerance}},
    {1, {34, 8, kCaution, 30, kOnce, FillEnclosure, 3}},
    {3, {34, 9, kCaution, 40, kSeldomAgain, FillEnclosure, 5}},
    {8, {34, 10, kInfo, 0, kOnce, FillEnclosure, 5}},
    {2, {34, 11, kMinor, 0, kOnce, FillRackSetting, 1}},
    {2, {34, 11, kMinor, 0, kOnce, FillRackSetting, 2}},
    {3, {34, 11, kMinor, 0, kOnce, FillRackSetting, 3}},
    {1, {34, 11, kCaution, 40, kOnce, FillRackSetting, 4}},
    {4, {34, 11, kMinor, 0, kOnce, FillRackSetting, 7}},
    {26, {34, 11, kMinor, 0, kSeldomAgain, FillRackSetting, 8}},
    {2, {34, 11, kMinor, 0, kOnce, FillRackSetting, 9}},
    {1, {34, 12, kCaution, 25, kOnce, FillEnclosure, 3}},
    {2, {34, 13, kCaution, 40, kOnce, FillMisconfigured}},
    {26, kStatusChange},
    {4, {34, 15, kCaution, 40, kSeldomAgain, FillSideNumber, 4}},
    {4, {34, 16, kInfo, 0, kOnce, FillSideNumber, 4}},
    {4, {34, 17, kCaution, 30, kSeldomAgain, FillSideNumber, 9}},
    {3, kFeedMissing},
    {5, kBladeInserted},
    {5, kBladeRemoved},
    {4, {34, 19, kInfo, 0, kOnce, FillSideComponent, 13}},
    {4, {34, 20, kInfo, 0, kOnce, FillSideComponent, 13}},
    {1, {34, 21, kCaution, 50, kOnce, FillEnclosure, 3}},
    {4, {34, 24, kCaution, 25, kSeldomAgain, FillInfrastructureFault}},
    {4, {34, 25, kInfo, 0, kOnce, FillFirmwareTooOld}},
    {3, kRequestDenied},
    // Node controllers.
    {3, {37, 1, kCaution, 20, kSeldomAgain, FillSideBand}},
    {4, {37, 2, kCaution, 20, kSeldomAgain, FillNodeAccess}},
    {1, {37, 4, kCaution, 40, kOnce, FillNodeConfiguration}},
    {1, {37, 6, kCritical, 30, kOnce, FillNodeProcessor}},
    {3, {37, 7, kCaution, 25, kOnce, FillProcessorLink, 2}},
    {1, kProcessorLinkFailed},
    {1, {37, 8, kCritical, 25, kOnce, FillChipLink, 3}},
    {3, kChipLinkReduced},
    {1, {37, 9, kCritical, 30, kOnce, FillNode}},
    {1, {37, 10, kCritical, 30, kOnce, FillNode}},
    {1, {37, 52, kCritical, 30, kOnce, FillNode}},
    {1, kFewerSockets},
    {1, {37, 57, kCaution, 30, kOnce, FillNodeDisabled}},
    {1, {37, 64, kCaution, 30, kOnce, FillIoBoardDisabled}},
    {3, kEventsDropped},
    {1, {37, 128, kCritical, 30, kOnce, FillNodeStatus}},
    {7, kNodeReset},
    {1, {37, 130, kCaution, 30, kOnce, FillNodeStatus}},
    {1, {37, 131, kInfo, 0, kOnce, FillNode}},
    {1, {37, 132, kCaution, 30, kOnce, FillNode}},
    {1, {37, 192, kCritical, 20, kOnce, FillChipError, 0}},
    {42, {37, 193, kMinor, 0, kPilesUp, FillChipError, 0}},
    {1, {37, 196, kCritical, 20, kOnce, FillChipError, 1}},
    {42, kFabricCorrected},
};
// clang-format on

// ---- Stories: events with the usual delay, in minutes, after the one before. A slow story's
// delays follow from the number of entries.

constexpr Step kClearing[] = {
    {&kLogCleared, 0}
};
constexpr Step kRestart[] = {
    {&kRestartNote,     0 },
    {&kPlannedShutdown, 90},
    {&kRestartPost,     8 }
};
constexpr Step kRomUpdate[] = {
    {&kFlashNote,       0  },
    {&kRomFlashed,      240},
    {&kPlannedShutdown, 6  },
    {&kFlashPost,       9  }
};

constexpr Step kFanWearsOut[] = {
    {&kFanDegraded,      0},
    {&kFanDegraded,      0},
    {&kFanFailed,        0},
    {&kFansNotRedundant, 0},
    {&kFanRemoved,       0},
    {&kFanInserted,      0},
    {&kFanNote,          0}
};
constexpr Step kFanReplaced[] = {
    {&kFanFailed,        0  },
    {&kFansNotRedundant, 0  },
    {&kFanRemoved,       200},
    {&kFanInserted,      4  },
    {&kFanNote,          15 }
};

constexpr Step kMemoryDecays[] = {
    {&kCorrected,     0},
    {&kCorrected,     0},
    {&kUncorrectable, 0},
    {&kModuleNote,    0}
};
constexpr Step kSpareTakesOver[] = {
    {&kCorrected,     0},
    {&kCorrectedList, 0},
    {&kSpareCopy,     0},
    {&kSpareSwitched, 0}
};
constexpr Step kCartridgeReplaced[] = {
    {&kUncorrectable,     0  },
    {&kCartridgeUnlocked, 300},
    {&kCartridgeRemoved,  1  },
    {&kModuleNote,        12 },
    {&kCartridgeInserted, 14 },
    {&kCartridgeLocked,   1  }
};

constexpr Step kMainsFail[] = {
    {&kAcProblem,            0  },
    {&kSuppliesNotRedundant, 0  },
    {&kSupplyUp,             40 },
    {&kMainsNote,            180}
};
constexpr Step kMainsFailWithUps[] = {
    {&kAcProblem,            0 },
    {&kUpsOnBattery,         1 },
    {&kSuppliesNotRedundant, 0 },
    {&kSupplyUp,             25},
    {&kMainsNote,            90}
};
constexpr Step kSupplyReplaced[] = {
    {&kSupplyFailed,         0  },
    {&kSuppliesNotRedundant, 0  },
    {&kSupplyRemoved,        400},
    {&kSupplyInserted,       3  },
    {&kSupplyUp,             1  },
    {&kSupplyNote,           20 }
};
constexpr Step kClockBatteryDies[] = {
    {&kClockBattery, 0},
    {&kClockBattery, 0},
    {&kBatteryNote,  0}
};

constexpr Step kRoomTooHot[] = {
    {&kWarm,         0  },
    {&kTooHot,       35 },
    {&kHeatShutdown, 1  },
    {&kHeatPost,     150},
    {&kHeatNote,     60 }
};
constexpr Step kMachineHangs[] = {
    {&kLockup,    0 },
    {&kRecovered, 10},
    {&kCrashPost, 3 },
    {&kCrashNote, 45}
};
constexpr Step kSystemCrashes[] = {
    {&kOsFailure,        0 },
    {&kRecoveryShutdown, 1 },
    {&kRecovered,        5 },
    {&kCrashNote,        70}
};
constexpr Step kProcessorCheck[] = {
    {&kMachineCheck, 0 },
    {&kSystemError,  0 },
    {&kRecovered,    6 },
    {&kCrashPost,    3 },
    {&kCrashNote,    50}
};
constexpr Step kProcessorDecays[] = {
    {&kProcessorCorrected, 0},
    {&kProcessorCorrected, 0},
    {&kProcessorFailed,    0},
    {&kProcessorNote,      0}
};
constexpr Step kChipsetFails[] = {
    {&kChipsetError, 0},
    {&kSystemError,  0},
    {&kRecovered,    7}
};
constexpr Step kHostBusFails[] = {
    {&kHostBusParity, 0},
    {&kRecovered,     5}
};

constexpr Step kAdapterReplaced[] = {
    {&kPciExpressError, 0  },
    {&kAdapterFailed,   2  },
    {&kSlotPowerOff,    300},
    {&kLeverOpened,     2  },
    {&kLeverClosed,     11 },
    {&kSlotPowerOn,     1  },
    {&kAdapterNote,     20 }
};
constexpr Step kAdapterSwapped[] = {
    {&kSlotPowerOff, 0},
    {&kLeverOpened,  1},
    {&kLeverClosed,  9},
    {&kSlotPowerOn,  1}
};
constexpr Step kCableFails[] = {
    {&kLinkDown,       0  },
    {&kNetworkReduced, 0  },
    {&kNetworkNote,    200}
};
constexpr Step kSwitchFails[] = {
    {&kLinkDown,            0  },
    {&kNetworkReduced,      0  },
    {&kNetworkNotRedundant, 20 },
    {&kNetworkNote,         120}
};

constexpr Step kDriveWearsOut[] = {
    {&kPhyError,    0},
    {&kPathError,   0},
    {&kDriveFailed, 0},
    {&kDriveNote,   0}
};
constexpr Step kDriveReplaced[] = {
    {&kDriveFailed, 0  },
    {&kDriveNote,   600},
    {&kDrivePost,   400}
};
constexpr Step kBayReplaced[] = {
    {&kArrayDrive, 0  },
    {&kBayNote,    500}
};
constexpr Step kScsiDriveReplaced[] = {
    {&kScsiDrive, 0  },
    {&kBayNote,   500}
};
constexpr Step kScsiFails[] = {
    {&kScsiController,   0  },
    {&kScsiNotRedundant, 0  },
    {&kAdapterNote,      700}
};
constexpr Step kCacheBatteryDies[] = {
    {&kCacheBattery,     0  },
    {&kCacheBatteryNote, 900}
};

constexpr Step kBladeExchanged[] = {
    {&kBladeRemoved,  0 },
    {&kBladeInserted, 15},
    {&kBladePowerOn,  2 },
    {&kBladeNote,     25}
};
constexpr Step kBladeDenied[] = {
    {&kBladeInserted, 0 },
    {&kRequestDenied, 1 },
    {&kPowerDenied,   1 },
    {&kBladePowerOn,  45}
};
constexpr Step kFeedFails[] = {
    {&kFeedMissing,  0  },
    {&kNotBalanced,  1  },
    {&kStatusChange, 1  },
    {&kMainsNote,    100}
};

constexpr Step kNodeLinkDecays[] = {
    {&kFabricCorrected,     0},
    {&kFabricCorrected,     0},
    {&kChipLinkReduced,     0},
    {&kProcessorLinkFailed, 0},
    {&kFewerSockets,        0}
};
constexpr Step kNodeRestarts[] = {
    {&kEventsDropped,   0},
    {&kNodeReset,       2},
    {&kFabricCorrected, 5}
};

constexpr Step kTestRun[] = {
    {&kInternalTest, 0 },
    {&kDiagnostics,  4 },
    {&kTestNote,     30}
};
constexpr Step kOldBoardChecked[] = {
    {&kEisaTimeout, 0 },
    {&kCacheParity, 30},
    {&kEmpty,       1 }
};

constexpr Story kStories[] = {
    {16, Pace::kQuick, kRestart,           Setting::kAnywhere     },
    {5,  Pace::kQuick, kRomUpdate,         Setting::kAnywhere     },
    {5,  Pace::kSlow,  kFanWearsOut,       Setting::kAnywhere     },
    {5,  Pace::kQuick, kFanReplaced,       Setting::kAnywhere     },
    {6,  Pace::kSlow,  kMemoryDecays,      Setting::kAnywhere     },
    {3,  Pace::kSlow,  kSpareTakesOver,    Setting::kAnywhere     },
    {3,  Pace::kQuick, kCartridgeReplaced, Setting::kOnMemoryBoard},
    {7,  Pace::kQuick, kMainsFail,         Setting::kAnywhere     },
    {6,  Pace::kQuick, kSupplyReplaced,    Setting::kAnywhere     },
    {2,  Pace::kSlow,  kClockBatteryDies,  Setting::kAnywhere     },
    {2,  Pace::kQuick, kRoomTooHot,        Setting::kInServer     },
    {2,  Pace::kQuick, kMachineHangs,      Setting::kAnywhere     },
    {2,  Pace::kQuick, kSystemCrashes,     Setting::kAnywhere     },
    {2,  Pace::kQuick, kProcessorCheck,    Setting::kAnywhere     },
    {2,  Pace::kSlow,  kProcessorDecays,   Setting::kAnywhere     },
    {1,  Pace::kQuick, kChipsetFails,      Setting::kAnywhere     },
    {1,  Pace::kQuick, kHostBusFails,      Setting::kAnywhere     },
    {3,  Pace::kQuick, kAdapterReplaced,   Setting::kAnywhere     },
    {7,  Pace::kQuick, kAdapterSwapped,    Setting::kAnywhere     },
    {8,  Pace::kQuick, kCableFails,        Setting::kAnywhere     },
    {4,  Pace::kQuick, kSwitchFails,       Setting::kAnywhere     },
    {3,  Pace::kSlow,  kDriveWearsOut,     Setting::kAnywhere     },
    {4,  Pace::kQuick, kDriveReplaced,     Setting::kAnywhere     },
    {3,  Pace::kQuick, kBayReplaced,       Setting::kAnywhere     },
    {2,  Pace::kQuick, kScsiDriveReplaced, Setting::kAnywhere     },
    {1,  Pace::kQuick, kScsiFails,         Setting::kAnywhere     },
    {2,  Pace::kQuick, kCacheBatteryDies,  Setting::kAnywhere     },
    {7,  Pace::kQuick, kBladeExchanged,    Setting::kAnywhere     },
    {2,  Pace::kQuick, kBladeDenied,       Setting::kAnywhere     },
    {2,  Pace::kQuick, kFeedFails,         Setting::kAnywhere     },
    {3,  Pace::kSlow,  kNodeLinkDecays,    Setting::kAnywhere     },
    {4,  Pace::kQuick, kNodeRestarts,      Setting::kAnywhere     },
};

constexpr Story kClearingStory{0, Pace::kSlow, kClearing};
constexpr Story kRomUpdateStory{0, Pace::kQuick, kRomUpdate};
constexpr Story kFanStory{0, Pace::kSlow, kFanWearsOut};
constexpr Story kMemoryStory{0, Pace::kSlow, kMemoryDecays};
constexpr Story kMainsStory{0, Pace::kQuick, kMainsFailWithUps};
constexpr Story kCableStory{0, Pace::kQuick, kCableFails};
constexpr Story kTestStory{0, Pace::kQuick, kTestRun};
constexpr Story kHangStory{0, Pace::kQuick, kMachineHangs};
constexpr Story kBladeStory{0, Pace::kQuick, kBladeExchanged};
constexpr Story kDriveStory{0, Pace::kSlow, kDriveWearsOut};
constexpr Story kProcessorStory{0, Pace::kQuick, kProcessorCheck};
constexpr Story kAdapterStory{0, Pace::kQuick, kAdapterReplaced};
constexpr Story kScsiStory{0, Pace::kQuick, kScsiDriveReplaced};
constexpr Story kNodeStory{0, Pace::kSlow, kNodeLinkDecays};
constexpr Story kOldBoardStory{0, Pace::kQuick, kOldBoardChecked};
constexpr Story kHeatStory{0, Pace::kQuick, kRoomTooHot, Setting::kInServer};
constexpr Story kHostBusStory{0, Pace::kQuick, kHostBusFails};
constexpr Story kRestartStory{0, Pace::kQuick, kRestart};

constexpr const Story* kYearPlan[] = {
    &kClearingStory, &kRestartStory,  &kFanStory,   &kMainsStory, &kMemoryStory,  &kRomUpdateStory,
    &kTestStory,     &kCableStory,    &kBladeStory, &kDriveStory, &kHangStory,    &kScsiStory,
    &kAdapterStory,  &kOldBoardStory, &kHeatStory,  &kNodeStory,  &kHostBusStory, &kProcessorStory,
};

// A pick is one look into a table that holds each row's index as often as its weight says.
template <std::size_t N>
consteval std::size_t TotalWeight(const auto(&rows)[N]) {
  std::size_t total = 0;
  for (const auto& row : rows) total += row.weight;
  return total;
}

template <std::size_t Total, std::size_t N>
consteval auto IndexByWeight(const auto(&rows)[N]) {
  static_assert(N <= 256);
  std::array<std::uint8_t, Total> indexes{};
  std::size_t next = 0;
  for (std::size_t row = 0; row < N; ++row) {
    for (std::size_t i = 0; i < rows[row].weight; ++i) {
      indexes[next++] = static_cast<std::uint8_t>(row);
    }
  }
  return indexes;
}
constexpr auto kEventIndexes = IndexByWeight<TotalWeight(kEvents)>(kEvents);
constexpr auto kStoryIndexes = IndexByWeight<TotalWeight(kStories)>(kStories);

consteval bool PlanFits() {
  std::size_t steps = 0;
  for (const Story* story : kYearPlan) {
    if (story->steps.size() > kLongestStory) return false;
    steps += story->steps.size();
  }
  return steps <= kEntriesForPlan;
}
static_assert(PlanFits());

consteval bool StoriesFit() {
  for (const Story& story : kStories) {
    if (story.steps.size() > kLongestStory) return false;
  }
  return true;
}
static_assert(StoriesFit());

template <std::size_t N>
std::size_t AnyIndex(const std::array<std::uint8_t, N>& indexes, Random& random) {
  return indexes[random.Below(static_cast<std::uint32_t>(N))];
}

Place DrawPlace(Random& random) {
  const std::uint32_t percent = random.Below(100);
  if (percent < 66) return Place::kSystem;
  if (percent < 76) return Place::kExternalChassis;
  if (percent < 84) return Place::kExternalStorage;
  if (percent < 89) return Place::kInternalStorage;
  return percent < 95 ? Place::kBladeEnclosure : Place::kPowerEnclosure;
}

// The location codes are those of the events: a server's parts are not an enclosure's.
std::uint8_t DrawLocation(Place place, Random& random) {
  constexpr std::uint8_t kInServer[] = {0, 1, 2, 3, 3, 4, 7, 9};
  constexpr std::uint8_t kInStorage[] = {5, 5, 9, 12};
  constexpr std::uint8_t kInBladeEnclosure[] = {9, 11, 13, 14};
  constexpr std::uint8_t kInPowerEnclosure[] = {7, 9};
  switch (place) {
    case Place::kExternalStorage:
    case Place::kInternalStorage:
      return random.AnyOf(kInStorage);
    case Place::kBladeEnclosure:
      return random.AnyOf(kInBladeEnclosure);
    case Place::kPowerEnclosure:
      return random.AnyOf(kInPowerEnclosure);
    default:
      return random.AnyOf(kInServer);
  }
}

std::uint8_t DrawByte(Random& random, std::uint32_t low, std::uint32_t high) {
  return static_cast<std::uint8_t>(random.Between(low, high));
}

}  // namespace

Cast DrawCast(Random& random) {
  Cast cast;
  cast.place = DrawPlace(random);
  cast.isUpper = random.Percent(50);
  cast.isExternal = random.Percent(70);
  cast.board = random.Percent(12) ? std::uint8_t{0} : DrawByte(random, 1, 8);
  cast.module = DrawByte(random, 1, 8);
  cast.processor = DrawByte(random, 1, 4);
  cast.slot = DrawByte(random, 1, 11);
  cast.port = DrawByte(random, 1, 4);
  cast.bus = DrawByte(random, 2, 63);
  cast.device = random.Percent(60) ? std::uint8_t{0} : DrawByte(random, 1, 31);
  cast.function = DrawByte(random, 0, 3);
  cast.fan = DrawByte(random, 1, 12);
  cast.zone = DrawByte(random, 1, 9);
  cast.location = DrawLocation(cast.place, random);
  cast.supply = DrawByte(random, 1, 4);
  cast.chassis = DrawByte(random, 1, 3);
  cast.enclosure = DrawByte(random, 1, 6);
  cast.blade = DrawByte(random, 1, 8);
  cast.box = DrawByte(random, 1, 4);
  cast.bay = DrawByte(random, 1, 16);
  return cast;
}

void Arrange(const Story& story, Random& random, Cast& cast) {
  if (story.setting == Setting::kInServer) {
    cast.place = Place::kSystem;
    cast.location = DrawLocation(cast.place, random);
  } else if (story.setting == Setting::kOnMemoryBoard && cast.board == 0) {
    cast.board = DrawByte(random, 1, 8);
  }
}

std::span<const Story* const> YearPlan() {
  return kYearPlan;
}

const Story& PickStory(Random& random) {
  return kStories[AnyIndex(kStoryIndexes, random)];
}

const EventKind& PickEvent(Random& random) {
  return kEvents[AnyIndex(kEventIndexes, random)].kind;
}

}  // namespace qvl::sample
