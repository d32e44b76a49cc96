ZKBaseGUIControls form 1
Begin ZKColorButton A
  Left = 0
  Top = 0
  Width = 1215
  Height = 495
  Visible = True
  Default = False
  Cancel = False
  ToolTipText = "t"
  TabIndex = 0
  TabStop = True
  Caption = "Button"
  BorderColor = 1
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
