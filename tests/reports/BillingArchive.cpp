#include "BillingArchive.h"

#include "db/Database.h"
#include "db/HierarchyStore.h"
#include "db/SampleStore.h"
#include "db/Schema.h"

namespace {

StoredSample sample(int adres, int day, int hour, const QVariant &active, double calk, double poj)
{
    StoredSample s;
    s.adres = std::int16_t(adres);
    s.EnCzynna = active;
    s.EnBiernaCalk = calk;
    s.EnBiernaPoj = poj;
    s.Data = ZDate::fromParts(2026, 3, day, hour);
    return s;
}

std::vector<StoredSample> samples()
{
    std::vector<StoredSample> out;
    for (int h = 0; h < 24; ++h)
        out.push_back(sample(1, 1, h, 10, 5, 0));
    for (int h = 0; h < 12; ++h)
        out.push_back(h == 6 ? sample(1, 2, h, 0, 4, 0) : sample(1, 2, h, 10, 5, 0));
    out.push_back(sample(1, 3, 0, 130, 65, 0));
    for (int h = 1; h < 24; ++h)
        out.push_back(sample(1, 3, h, 10, 8, -1));
    for (int h : {0, 12})
        out.push_back(sample(2, 1, h, 100, 20, 0));
    out.push_back(sample(2, 2, 0, 0, 30, 0));
    out.push_back(sample(2, 2, 12, 50, 10, -10));
    out.push_back(sample(2, 3, 12, QVariant(), 6, 0));
    return out;
}

}

void BillingArchive::fill(Database &db)
{
    db.open(Database::OpenMode::CreateIfMissing);
    Schema::create(db);
    db.execText(QStringLiteral("INSERT INTO Regulatory (Kod, Adres, CzestOdczytu) VALUES ('A', 1, 60), ('B', 2, 720)"));
    SampleStore store([&db]() -> Database & { return db; });
    db.inTransaction([&] {
        for (const StoredSample &s : samples())
            store.appendSample(s);
    });
    HierarchyStore tree([&db]() -> Database & { return db; });
    for (const char *element : {"Hala", "Pusta"})
        tree.add(element, "System Zorbel", "S");
    tree.add("A", "Hala", "R");
    tree.add("B", "Hala", "R");
}
