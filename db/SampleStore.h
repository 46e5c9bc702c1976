#pragma once

#include "base/SampleArchive.h"

#include <functional>

class Database;

// The archive of samples on the station's database: table Pomiary and the
// base of the next sample in OstPomiar, written in one transaction.
class SampleStore final : public SampleArchive {
public:
    // The connection is looked up at each call: it opens after this object.
    explicit SampleStore(std::function<Database &()> connection) : m_connection(std::move(connection)) {}

    void ZapiszPomiar(const StoredSample &sample) override;

private:
    std::function<Database &()> m_connection;
};
