#pragma once

#include "db/DatabaseConfig.h"

// A new station database for a bench, left as it was found: the station's
// tables made by its own schema code (as zorbel-admin init makes them) where
// there are none, and taken away at the end, also when the bench fails. An
// SQLite file must not exist yet and is removed again; a server's database
// (made beforehand by its administrator) must hold no station table and
// keeps no table of the bench's.
class ScratchDatabase {
public:
    explicit ScratchDatabase(const DatabaseConfig &config);
    ~ScratchDatabase();
    ScratchDatabase(const ScratchDatabase &) = delete;
    ScratchDatabase &operator=(const ScratchDatabase &) = delete;

    const DatabaseConfig &config() const { return m_config; }

private:
    bool onFile() const { return m_config.engine == SqlDialect::Engine::SQLite; }
    void create();
    void remove();

    DatabaseConfig m_config;
};
