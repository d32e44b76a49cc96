ZKBaseGUIControls form 1
Begin ZKLed A
  Left = 0
  Top = 0
  Width = 375
  Height = 375
  Visible = True
  ToolTipText = "t"
  TabIndex = 0
  TabStop = False
End
Begin ZKLabel L
  Left = 0
  Top = 0
  Width = 1935
  Height = 375
  Visible = True
  Default = False
  Cancel = False
  ToolTipText = ""
  TabIndex = 1
  TabStop = False
  Caption = "x \"y\""
  BackColor = -2147483633
End
