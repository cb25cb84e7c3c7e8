print("before")
error({})
