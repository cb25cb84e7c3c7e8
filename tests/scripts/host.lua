-- What a script finds around it when it is run with no window.

local work = arg[1]
assert(nalt.getVersion() == 2.9)
assert(#arg == 1 and type(arg[-1]) == "string")
assert(NALT_PATH_TO_SCRIPT == arg[0]:match(".*/"))
for key in pairs(arg) do assert(type(key) == "number") end

local functions = 0
for name, value in pairs(nalt) do
  assert(type(value) == "function", name)
  functions = functions + 1
end
assert(functions == 250)
assert(nalt.setAttributes == nalt.applyAttributes and nalt.setComment == nalt.applyComment)
assert(nalt.setTextureAttributes == nalt.applyTextureAttributes)
assert(nalt.setLightPointAppearanceAttributes == nalt.applyLightPointAppearanceAttributes)
assert(nalt.setLightPointAnimationAttributes == nalt.applyLightPointAnimationAttributes)

print(nil, true, 1.5, {})
print("work in " .. work)
print(arg[0])
