python stop_in("showTree")
python gdb.execute("generate-core-file exhibits.core", to_string=True)
python gdb.execute("kill", to_string=True)
python gdb.execute("core-file exhibits.core", to_string=True)
python select_function()
print document
shell rm exhibits.core
