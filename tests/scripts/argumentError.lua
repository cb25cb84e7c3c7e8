-- A text that is none of a list is an error as soon as there is a model, and a neutral result before.
assert(nalt.selectAll("FACE") == false)
nalt.newModel("a.flt")
nalt.selectAll("FACE")
