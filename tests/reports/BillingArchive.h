#pragma once

class Database;

// The bills' tests' archive, written through the station's own path (each
// sample with its day's roll-up): 1 to 3 March 2026, controller A (address
// 1, a sample an hour) and B (address 2, a sample each 12 hours).
//   A, 1 March: 24 × (A 10 kWh, EnBiernaCalk 5, EnBiernaPoj 0)
//   A, 2 March: samples at 0-11 h only (12 missing hours); at 6 h A 0 and
//               EnBiernaCalk 4 (a period without active energy), the others as on the 1st
//   A, 3 March: at 0 h the gap's energy (A 130, EnBiernaCalk 65), then 23 ×
//               (A 10, EnBiernaCalk 8, EnBiernaPoj -1)
//   B, 1 March: 0 and 12 h, each A 100, EnBiernaCalk 20
//   B, 2 March: 0 h A 0, EnBiernaCalk 30; 12 h A 50, EnBiernaCalk 10, EnBiernaPoj -10
//   B, 3 March: 12 h only, A NULL, EnBiernaCalk 6 (one sample missing)
// Both are under the object "Hala"; the object "Pusta" has none.
namespace BillingArchive {

void fill(Database &db);

}
