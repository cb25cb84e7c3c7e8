-- Without a model every function gives its neutral result, whatever its arguments are, and says nothing.

package.path = NALT_PATH_TO_SCRIPT .. "lib/?.lua;" .. package.path
local check = require("check")
local signatures = require("signatures")

-- These need a run and no model.
local alone = {
  getVersion = true, newModel = true, openModel = true, importModel = true, setCurrentModel = true,
  saveAllModels = true, closeAllModels = true, executeMacro = true, getTolerance = true, setTolerance = true,
}

local asked = 0
local function checkAll()
  for _, signature in ipairs(signatures) do
    local call = nalt[signature.name]
    if signature.aliasOf then
      assert(call == nalt[signature.aliasOf], signature.name)
    elseif not alone[signature.name] then
      check.results(signature.neutral, call())
      if signature.neutral == "" then
        call({}, {}) -- one value for each name that is asked for; see below
      else
        check.results(signature.neutral, call({}, {}, {}))
        check.results(signature.neutral, call(nil))
      end
      asked = asked + 1
    end
  end
end
checkAll()
assert(asked == 235, asked)

-- One value for each name.
check.results("nil nil", nalt.getAttributes("a", "b"))
check.results("nil", nalt.getTextureAttributes(0, "a"))
check.results("nil nil nil", nalt.getLightPointAppearanceAttributes(0, "a", "b", "c"))
check.results("", nalt.getLightPointAnimationAttributes(0))
check.results("number:0 number:0", nalt.reportStatistics("a", "b"))

-- What needs no model.
check.results("number:2.9", nalt.getVersion())
check.results("boolean:false", nalt.setCurrentModel("none.flt"))
check.results("boolean:false", nalt.saveAllModels())
check.results("", nalt.closeAllModels())
check.results("number:0.0001", nalt.getTolerance())
check.results("", nalt.setTolerance(0.25))
check.results("number:0.25", nalt.getTolerance())
nalt.setTolerance(-1)
nalt.setTolerance(0/0)
check.results("number:0.25", nalt.getTolerance())
nalt.setTolerance(0)
check.results("number:0", nalt.getTolerance())

-- The same when there was a model.
assert(nalt.newModel("a.flt"))
nalt.closeModel()
checkAll()
assert(nalt.newModel("a.flt"))
nalt.closeAllModels()
checkAll()
