#pragma once

#include "simcore/ControllerConfig.h"

#include <QList>
#include <QString>
#include <vector>

namespace sim {

// Where the simulated controllers come from. Each loader throws
// std::runtime_error with a message fit for the user.
namespace ControllerSources {

// Every row of table Regulatory, with the counters of its OstPomiar row.
std::vector<ControllerConfig> fromDatabase(const QString &url);

// Lines "address [Przekladnia [PrzekladniaNap [NapieciePomiar]]]"; a # starts
// a comment. Missing columns take the defaults 100, 1 and 380.
std::vector<ControllerConfig> fromConfigText(const QString &text);
std::vector<ControllerConfig> fromConfigFile(const QString &path);

// Plain controllers with default settings.
std::vector<ControllerConfig> fromAddresses(const QList<int> &addresses);

// Keeps only the listed addresses.
std::vector<ControllerConfig> restrictTo(std::vector<ControllerConfig> configs,
                                         const QList<int> &addresses);

} // namespace ControllerSources
} // namespace sim
