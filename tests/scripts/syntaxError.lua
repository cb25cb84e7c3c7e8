print("this never runs")
if then
