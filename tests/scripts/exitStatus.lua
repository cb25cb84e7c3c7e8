-- A script may end the program with a status of its own, with a model open.
nalt.newModel("a.flt")
print("leaving")
os.exit(3)
