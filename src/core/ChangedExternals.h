#pragma once

namespace nalt {

class Model;

/// When files that the document refers to changed on disk, asks whether they are to be read again. Reading them drops
/// what can be undone and what is selected, since both may hold records of their old content; "no" keeps that content
/// until the files change once more. True when anything was read.
bool offerReloadOfExternals(Model& model);

} // namespace nalt
