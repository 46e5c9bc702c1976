#pragma once

#include "base/SampleArchive.h"

#include <functional>
#include <vector>

class Database;

// The archive of samples on the station's database: table Pomiary with the
// roll-up of each sample's day in PomiaryDzien, and the base of the next
// sample in OstPomiar, written in one transaction. Every statement that
// writes those tables lives here.
class SampleStore final : public SampleArchive {
public:
    // The connection is looked up at each call: it opens after this object.
    explicit SampleStore(std::function<Database &()> connection) : m_connection(std::move(connection)) {}

    void ZapiszPomiar(const StoredSample &sample) override;

    // The two halves of a sample, for imports that write a history of
    // samples and then the base of the last one. A sample goes in with its
    // day's roll-up: call it inside a transaction.
    void appendSample(const StoredSample &sample);
    void setBase(const StoredSample &sample);

    // The base of the next sample of each address (Data is its Czas).
    std::vector<StoredSample> bases();

private:
    std::function<Database &()> m_connection;
};
