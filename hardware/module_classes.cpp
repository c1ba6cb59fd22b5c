// The seven modules that the store knows, and what sets them apart.

#include "hardware/module.h"

namespace canvas {
namespace {

constexpr std::int16_t controllerParameters[]{4, 5, 6, 8, 9, 11, 13, 14};
constexpr std::int16_t encoderParameters[]{4, 5, 6, 7, 8, 9, 10};

// Hosts and their logs know the source texts as they are: "SavtToDB", and the blank behind COM2's, are no slips.
constexpr ModuleClass classes[] = {
    {.name = "clsBVTRVQD",
     .group = mtRVQD,
     .query = "qryRVQD",
     .rows = 71,
     .tag = "RVQD",
     .fileGroup = mtRVQD,
     .readSource = "RVQD::ReadFromDB",
     .exportSource = "RVQD::ExportToCSV",
     .importSource = "RVQD::ImportFromCSV"},
    {.name = "clsBVTKX410",
     .group = mtKX410,
     .query = "qryKX410",
     .rows = 15,
     .tag = "KX410",
     .fileGroup = mtKX410,
     .readSource = "KX410::ReadFromDB",
     .saveSource = "KX410::SavtToDB",
     .exportSource = "KX410::ExportToCSV",
     .importSource = "KX410::ImportFromCSV",
     .saveAnswers = true,
     .parameterRows = controllerParameters},
    {.name = "clsBVTCOM1",
     .group = mtCOM1,
     .query = "qryCOM1",
     .rows = 7,
     .tag = "COM1",
     .fileGroup = mtCOM1,
     .readSource = "COM1::ReadFromDB",
     .exportSource = "COM1::ExportToCSV",
     .importSource = "COM1::ImportFromCSV",
     .saveAnswers = true,
     .closesStore = true,
     .reads = store::Access::repair},
    {.name = "clsBVTCOM2",
     .group = mtCOM2,
     .query = "qryCOM2",
     .rows = 8,
     .tag = "COM2",
     .fileGroup = mtCOM2,
     .readSource = "COM2::ReadFromDB ",
     .exportSource = "COM2::ExportToCSV",
     .importSource = "COM2::ImportFromCSV",
     .saveAnswers = true,
     .reads = store::Access::repair},
    {.name = "clsBVTNetwork",
     .group = mtNetwork,
     .query = "qryNetwork",
     .rows = 13,
     .tag = "Network",
     .fileGroup = mtNetwork,
     .fileLines = 13,
     .readSource = "Network::ReadFromDB",
     .exportSource = "Network::ExportToCSV",
     .importSource = "Network::ImportFromCSV"},
    {.name = "clsBVTExternalEncoder",
     .group = mtExternalEncoder,
     .query = "qryExternalEncoder",
     .rows = 11,
     .tag = "ExternalEncoder",
     .fileGroup = mtExternalEncoder,
     .exportSource = "ExternalEncoder::ExportToCSV",
     .importSource = "ExternalEncoder::ImportFromCSV",
     .saveAnswers = true,
     .parameterRows = encoderParameters},
    // Its file is the network's, of which it reads 11 lines only: a file with 13 is refused.
    {.name = "clsBVTRemoteIO",
     .group = mtRemoteIO,
     .query = "qryRemoteIO",
     .rows = 9,
     .tag = "Network",
     .fileGroup = mtNetwork,
     .fileLines = 11,
     .readSource = "RemoteIO::ReadFromDB",
     .exportSource = "RemoteIO::ExportToCSV",
     .importSource = "RemoteIO::ImportFromCSV",
     .restoreMarks = false},
};

constexpr bool inOrder() {
    for (std::size_t i = 0; i < std::size(classes); ++i)
        if (classes[i].group != static_cast<mtModuleType>(i + 1)) return false;
    return true;
}
static_assert(std::size(classes) == mtRemoteIO && inOrder(), "a row for each group, in the order of the numbers");

}  // namespace

const ModuleClass& moduleClass(mtModuleType group) {
    if (group < mtRVQD || group > mtRemoteIO) throw ContractViolation("no module has this group");
    return classes[group - 1];
}

}  // namespace canvas
