#pragma once

// An analyser of the installation: an empty class, kept as a declared
// extension point.
class clsAnalizator {};
